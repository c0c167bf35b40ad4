#include "server/Connection.h"

#include <array>
#include <asio/buffer.hpp>
#include <asio/post.hpp>
#include <asio/write.hpp>

#include "protocol/InternPackets.h"

namespace tolva {
namespace {

constexpr auto kGoodbyeWithin = std::chrono::seconds(2);
constexpr int kSystemBuffer = 128 * 1024;

}  // namespace

Connection::Connection(asio::ip::tcp::socket socket, ClientId id, ConnectionListener& listener)
    : mSocket(std::move(socket)), mId(id), mListener(listener) {}

void Connection::Start() {
  asio::error_code ignored;
  mSocket.set_option(asio::ip::tcp::no_delay(true), ignored);
  // Or the system would let a client that does not read pile up megabytes of its own.
  mSocket.set_option(asio::socket_base::send_buffer_size(kSystemBuffer), ignored);
  Read();
}

void Connection::Send(const Packet& packet) {
  if (mState != State::Open) return;
  mListener.OnSending(*this, packet);
  std::array<std::uint8_t, kRecordBufferSize> record;
  const std::uint32_t length = mConverter.WriteBuffer(record.data(), packet);
  if (mQueued.size() + mOnTheWay.size() + length > kMostQueued) return Close("does not read what it is sent");
  mQueued.insert(mQueued.end(), record.begin(), record.begin() + length);
  Write();
}

void Connection::CloseAfterSending() {
  if (mState != State::Open) return;
  mState = State::SayingGoodbye;
  mDeadline = Clock::now() + kGoodbyeWithin;
  Write();
}

void Connection::CheckDeadline(TimePoint now) {
  if (now >= mDeadline) Close("did not take its farewell");
}

void Connection::Read() {
  const auto room = mCutter.Room();
  mSocket.async_read_some(asio::buffer(room.data(), room.size()),
                          [self = shared_from_this()](asio::error_code error, std::size_t count) {
                            if (error) return self->Close(error == asio::error::eof ? "hung up" : error.message());
                            self->mCutter.Commit(count);
                            self->DeliverPackets();
                            if (self->mState != State::Closed) self->Read();
                          });
}

void Connection::DeliverPackets() {
  while (mState == State::Open) {
    const RecordCutter::Result result = mCutter.Next();
    if (result.outcome == RecordCutter::Outcome::Incomplete) return;
    if (result.outcome == RecordCutter::Outcome::Broken) return Close("dropped: sent what is no record");
    if (const auto* ping = PacketCast<PacketInternPing>(result.packet.get())) Send(PacketInternPong(ping->mUintTick));
    mListener.OnPacket(*this, *result.packet);
  }
  // A client that is being closed may go on sending; hearing it out keeps the system from cutting the farewell short.
  mCutter.Clear();
}

void Connection::Write() {
  if (mState == State::Closed || !mOnTheWay.empty()) return;
  if (mQueued.empty()) return SayGoodbye();
  // Once the rush is over, what it took is given back.
  if (mOnTheWay.capacity() > kMostQueued / 4) mOnTheWay = {};
  mOnTheWay.swap(mQueued);
  asio::async_write(mSocket, asio::buffer(mOnTheWay), [self = shared_from_this()](asio::error_code error, std::size_t) {
    self->mOnTheWay.clear();
    if (error) return self->Close(error.message());
    self->Write();
  });
}

void Connection::SayGoodbye() {
  if (mState != State::SayingGoodbye) return;
  mState = State::AwaitingGoodbye;
  asio::error_code ignored;
  mSocket.shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
}

void Connection::Close(const std::string& why) {
  if (mState == State::Closed) return;
  mState = State::Closed;
  mDeadline = TimePoint::max();
  const auto executor = mSocket.get_executor();
  asio::error_code ignored;
  mSocket.close(ignored);
  // Later, because the listener may be in the middle of a broadcast that found this client's queue full.
  asio::post(executor, [self = shared_from_this(), why] { self->mListener.OnClosed(*self, why); });
}

}  // namespace tolva
