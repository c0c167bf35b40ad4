#pragma once

#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <asio/signal_set.hpp>
#include <asio/steady_timer.hpp>
#include <map>
#include <memory>
#include <string>

#include "server/Connection.h"
#include "server/ServerCore.h"

namespace tolva {

// The sockets around the ServerCore: accepts clients, passes their packets and the time to it. One event loop on the
// thread that calls Run; only Stop may be called from another thread.
class Server final : public ConnectionListener {
 public:
  // The log must outlive the server.
  Server(const ServerOptions& options, ServerLog& log);

  // Begins to listen. Returns an empty text, or why it cannot, as a sentence for the user.
  std::string Listen();
  // The port listened on, also when the system picked it for port 0.
  std::uint16_t GetPort() const { return mPort; }
  // SIGINT or SIGTERM stops the server as Stop does; a second one ends it at once.
  void StopOnSignals();
  // Serves until it is stopped. A failure in one client's handler, or in one tick, is logged and affects no other.
  void Run();
  // Says goodbye to the clients and makes Run return, after three seconds at the latest.
  void Stop();

 private:
  void OnPacket(Connection& connection, const Packet& packet) override;
  void OnSending(Connection& connection, const Packet& packet) override;
  void OnClosed(Connection& connection, const std::string& why) override;

  void Accept();
  void Welcome(asio::ip::tcp::socket socket);
  void AcceptLater();
  void Tick();
  void BeginStop();

  ServerOptions mOptions;
  ServerLog& mLog;
  ServerCore mCore;
  asio::io_context mContext{1};
  asio::ip::tcp::acceptor mAcceptor{mContext};
  asio::signal_set mSignals{mContext};
  asio::steady_timer mTickTimer{mContext};
  asio::steady_timer mAcceptTimer{mContext};
  std::map<ClientId, std::shared_ptr<Connection>> mConnections;
  ClientId mLastId = 0;
  std::uint16_t mPort = 0;
  bool mStopping = false;
  TimePoint mStopAtLatest = TimePoint::max();
};

}  // namespace tolva
