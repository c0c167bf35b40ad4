#pragma once

#include <asio/ip/tcp.hpp>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "protocol/RecordDecoder.h"
#include "server/ClientLink.h"
#include "server/common/ServerTime.h"

namespace tolva {

class Connection;

// Is notified of what happens on connections. All calls come from the event loop.
class ConnectionListener {
 public:
  virtual ~ConnectionListener() = default;
  virtual void OnPacket(Connection& connection, const Packet& packet) = 0;
  // Before the packet is queued.
  virtual void OnSending(Connection& connection, const Packet& packet) = 0;
  // The last call for this connection, never from within another one.
  virtual void OnClosed(Connection& connection, const std::string& why) = 0;
};

// A client's socket: decodes what arrives into packets, queues what is to be sent, answers pings. Lives as long as an
// operation on its socket is in flight; used on the event loop's thread.
class Connection final : public ClientLink, public std::enable_shared_from_this<Connection> {
 public:
  // The high-water mark in bytes: a client that has not read more than this, besides what the system buffers, is
  // closed. About 250 of the longest chat lines.
  static constexpr std::size_t kMaxQueued = std::size_t{256} * 1024;

  // The listener must outlive the connection. Nothing happens before Start.
  Connection(asio::ip::tcp::socket socket, ClientId id, ConnectionListener& listener);
  void Start();

  ClientId GetId() const { return mId; }

  void Send(const Packet& packet) override;
  void CloseAfterSending() override;
  // Closes the connection when the client has not taken its farewell in time. To be called several times a second.
  void CheckDeadline(TimePoint now);

 private:
  enum class State {
    Open,
    SayingGoodbye,    // sends what is queued, and discards what arrives
    AwaitingGoodbye,  // has sent everything and closed its side; the client has not closed the other yet
    Closed
  };

  void Read();
  void DeliverPackets();
  void Write();
  void SayGoodbye();
  void Close(const std::string& why);

  asio::ip::tcp::socket mSocket;
  ClientId mId;
  ConnectionListener& mListener;
  State mState = State::Open;
  TimePoint mDeadline = TimePoint::max();
  RecordDecoder mDecoder;
  PacketConverter mConverter;
  std::vector<std::uint8_t> mQueued;
  std::vector<std::uint8_t> mInFlight;
};

}  // namespace tolva
