#include "tools/bots/Swarm.h"

#include <algorithm>
#include <cstdio>

namespace tolva {
namespace {

constexpr auto kTickInterval = std::chrono::milliseconds(10);
// The server has room for 64 clients that are not logged in.
constexpr auto kBotInterval = std::chrono::milliseconds(30);
constexpr auto kEntryTimeout = std::chrono::seconds(30);

}  // namespace

bool Swarm::Run() {
  asio::error_code error;
  asio::ip::tcp::resolver resolver(mContext);
  const auto found = resolver.resolve(asio::ip::tcp::v4(), mOptions.host, std::to_string(mOptions.port), error);
  if (error || found.empty()) return false;
  mServer = found.begin()->endpoint();
  mGiveUpAt = Clock::now() + kEntryTimeout;
  Tick();
  mContext.run();
  return true;
}

void Swarm::Tick() {
  const TimePoint now = Clock::now();
  if (static_cast<int>(mBots.size()) < mOptions.count && now >= mNextBot) {
    mBots.push_back(std::make_unique<Bot>(mContext, static_cast<int>(mBots.size()) + 1, mBook));
    mBots.back()->Connect(mServer);
    mNextBot = now + kBotInterval;
  }
  if (mSpreadFrom == TimePoint::max() && (AreAllInWorld() || now >= mGiveUpAt)) mSpreadFrom = now;
  const bool isSpreading = now - mOptions.spread * std::chrono::seconds(1) < mSpreadFrom;
  if (!isSpreading && !mIsMeasuring) mBook.Open();
  mIsMeasuring = !isSpreading;
  for (const auto& bot : mBots) bot->Tick(now);
  if (!isSpreading && now - mSpreadFrom >= (mOptions.spread + mOptions.seconds) * std::chrono::seconds(1)) {
    for (const auto& bot : mBots) bot->Stop();
    return;
  }
  mTimer.expires_after(kTickInterval);
  mTimer.async_wait([this](asio::error_code) { Tick(); });
}

bool Swarm::AreAllInWorld() const {
  return static_cast<int>(mBots.size()) == mOptions.count &&
         std::all_of(mBots.begin(), mBots.end(),
                     [](const auto& bot) { return bot->IsInWorld() || !bot->GetLoss().empty(); });
}

bool Swarm::Report() const {
  const auto dropped =
      std::count_if(mBots.begin(), mBots.end(), [](const auto& bot) { return !bot->GetLoss().empty(); });
  const auto outside = std::count_if(mBots.begin(), mBots.end(), [](const auto& bot) { return !bot->IsInWorld(); });
  for (const auto& bot : mBots)
    if (!bot->GetLoss().empty()) std::printf("lost: %s\n", bot->GetLoss().c_str());
  std::printf("bots:           %zu, %td dropped, %td never in the world\n", mBots.size(), dropped, outside);
  std::printf("moves asked:    %zu\n", mBook.GetAskedCount());
  std::printf("own moves seen: %zu (%s)\n", mBook.GetOwn().GetCount(), mBook.GetOwn().Describe().c_str());
  std::printf("others' moves:  %zu (%s)\n", mBook.GetOthers().GetCount(), mBook.GetOthers().Describe().c_str());
  std::printf("most in sight:  %zu\n", mBook.GetMaxInSight());
  return dropped == 0 && outside == 0 && mBook.GetOwn().GetCount() > 0;
}

}  // namespace tolva
