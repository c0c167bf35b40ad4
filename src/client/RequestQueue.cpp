#include "client/RequestQueue.h"

#include <utility>

#include "network/TcpConnection.h"

namespace tolva {
namespace {

constexpr std::size_t kMaxRequests = 256;

// For how long nothing must have come from the server, and the longest wait for that after the last request.
constexpr std::uint32_t kSilenceMs = 15;
constexpr std::uint32_t kMaxWaitMs = 250;

}  // namespace

void RequestQueue::Add(Kind kind, Make make) {
  mWaiting.push_back({kind, std::move(make)});
  if (mWaiting.size() > kMaxRequests) mWaiting.pop_front();
}

void RequestQueue::Discard(Kind kind) {
  std::erase_if(mWaiting, [&](const Request& request) { return request.kind == kind; });
}

std::unique_ptr<Packet> RequestQueue::TakeDue(std::uint32_t now, std::uint32_t unsentCount) {
  if (unsentCount > 0) {
    mBusyTick = now;
    return nullptr;
  }
  if (mWaiting.empty() || !IsDue(now)) return nullptr;
  std::unique_ptr<Packet> request;
  while (request == nullptr && !mWaiting.empty()) {
    const Make make = std::move(mWaiting.front().make);
    mWaiting.pop_front();
    request = make();
  }
  if (request != nullptr) mRequestTick = now;
  return request;
}

bool RequestQueue::IsDue(std::uint32_t now) const {
  if (now - mRequestTick >= kMaxWaitMs) return true;
  return now - mBusyTick >= TcpConnection::kSendPauseMs + kSilenceMs && now - mReceivedTick >= kSilenceMs;
}

}  // namespace tolva
