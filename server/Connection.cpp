#include "server/Connection.h"

#include <array>
#include <asio/buffer.hpp>
#include <asio/post.hpp>
#include <asio/write.hpp>

#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

constexpr auto kGoodbyeTimeout = std::chrono::seconds(2);
constexpr int kSendBuffer = 128 * 1024;

}  // namespace

Connection::Connection(asio::ip::tcp::socket socket, ClientId id, ConnectionListener& listener)
    : mSocket(std::move(socket)), mId(id), mListener(listener) {}

void Connection::Start() {
  asio::error_code ignored;
  mSocket.set_option(asio::ip::tcp::no_delay(true), ignored);
  // Without a limit, the system would buffer megabytes for a client that does not read.
  mSocket.set_option(asio::socket_base::send_buffer_size(kSendBuffer), ignored);
  Read();
}

void Connection::Send(const Packet& packet) {
  if (mState != State::Open) return;
  mListener.OnSending(*this, packet);
  std::array<std::uint8_t, kRecordBufferSize> record;
  const std::uint32_t length = mConverter.WriteBuffer(record.data(), packet);
  if (mQueued.size() + mInFlight.size() + length > kMaxQueued) return Close("does not read what it is sent");
  mQueued.insert(mQueued.end(), record.begin(), record.begin() + length);
  Write();
}

void Connection::CloseAfterSending() {
  if (mState != State::Open) return;
  mState = State::SayingGoodbye;
  mDeadline = Clock::now() + kGoodbyeTimeout;
  Write();
}

void Connection::CheckDeadline(TimePoint now) {
  if (now >= mDeadline) Close("did not take its farewell");
}

void Connection::Read() {
  const auto room = mDecoder.Room();
  mSocket.async_read_some(asio::buffer(room.data(), room.size()),
                          [self = shared_from_this()](asio::error_code error, std::size_t count) {
                            if (error) return self->Close(error == asio::error::eof ? "hung up" : error.message());
                            self->mDecoder.Commit(count);
                            self->DeliverPackets();
                            if (self->mState != State::Closed) self->Read();
                          });
}

void Connection::DeliverPackets() {
  while (mState == State::Open) {
    const RecordDecoder::Result result = mDecoder.Next();
    if (result.outcome == RecordDecoder::Outcome::Incomplete) return;
    if (result.outcome == RecordDecoder::Outcome::Broken) return Close("dropped: sent bytes that are not a record");
    Dispatch(*result.packet, [this](const PacketInternPing& ping) { Send(PacketInternPong(ping.mUintTick)); });
    mListener.OnPacket(*this, *result.packet);
  }
  // A client that is being closed may go on sending. The system would reset a connection closed with unread data, and
  // the farewell would be lost, so it is read and discarded.
  mDecoder.Clear();
}

void Connection::Write() {
  if (mState == State::Closed || !mInFlight.empty()) return;
  if (mQueued.empty()) return SayGoodbye();
  // After a rush the buffer gives its memory back.
  if (mInFlight.capacity() > kMaxQueued / 4) mInFlight = {};
  mInFlight.swap(mQueued);
  asio::async_write(mSocket, asio::buffer(mInFlight), [self = shared_from_this()](asio::error_code error, std::size_t) {
    self->mInFlight.clear();
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
  // Posted, because the listener may be in the middle of a broadcast that found this client's queue full.
  asio::post(executor, [self = shared_from_this(), why] { self->mListener.OnClosed(*self, why); });
}

}  // namespace tolva
