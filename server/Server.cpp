#include "server/Server.h"

#include <asio/post.hpp>
#include <csignal>
#include <exception>
#include <vector>

#include "foundation/Error.h"

namespace tolva {
namespace {

constexpr auto kTickInterval = std::chrono::milliseconds(100);
constexpr auto kAcceptPause = std::chrono::milliseconds(500);
constexpr auto kStopTimeout = std::chrono::seconds(3);
// Clients that are being closed keep a socket for a moment. With more of them, new connections are closed at once.
constexpr std::size_t kMaxClosing = 64;

}  // namespace

Server::Server(const ServerOptions& options, ServerLog& log)
    : mOptions(options), mLog(log), mCore(options, log, Clock::now()) {}

std::string Server::Listen() {
  const std::string where = mOptions.bind + ':' + std::to_string(mOptions.port);
  asio::error_code error;
  const asio::ip::tcp::endpoint endpoint(asio::ip::make_address_v4(mOptions.bind, error), mOptions.port);
  if (!error) mAcceptor.open(endpoint.protocol(), error);
  // Otherwise the port of a server that was just stopped stays blocked for a while.
  if (!error) mAcceptor.set_option(asio::socket_base::reuse_address(true), error);
  if (!error) mAcceptor.bind(endpoint, error);
  if (!error) mAcceptor.listen(asio::socket_base::max_listen_connections, error);
  if (error == asio::error::address_in_use)
    return "Cannot listen on " + where + ": another program does. Choose another port with --port; 0 picks a free one.";
  if (error) return "Cannot listen on " + where + ": " + error.message() + ". See --bind and --port.";
  mPort = mAcceptor.local_endpoint().port();
  return "";
}

void Server::StopOnSignals() {
  mSignals.add(SIGINT);
  mSignals.add(SIGTERM);
  mSignals.async_wait([this](asio::error_code error, int) {
    if (error) return;
    BeginStop();
    mSignals.async_wait([this](asio::error_code again, int) {
      if (!again) mContext.stop();
    });
  });
}

void Server::Run() {
  Accept();
  Tick();
  while (!mContext.stopped()) {
    std::string fault;
    // What a handler throws comes out of the loop, which can be entered again.
    try {
      mContext.run();
    } catch (const std::exception& exception) {
      fault = exception.what();
    } catch (Error* error) {
      fault = std::string(error->GetModule()) + ' ' + error->GetMethod();
      delete error;
    }
    if (!fault.empty()) mLog.Event("fault: " + fault, Clock::now());
  }
}

void Server::Stop() {
  asio::post(mContext, [this] { BeginStop(); });
}

void Server::OnPacket(Connection& connection, const Packet& packet) {
  mCore.Receive(connection.GetId(), packet, Clock::now());
}

void Server::OnSending(Connection& connection, const Packet& packet) {
  mLog.Sending(connection.GetId(), packet, Clock::now());
}

void Server::OnClosed(Connection& connection, const std::string& why) {
  const ClientId id = connection.GetId();
  mConnections.erase(id);
  mCore.Disconnect(id, why, Clock::now());
}

void Server::Accept() {
  mAcceptor.async_accept([this](asio::error_code error, asio::ip::tcp::socket socket) {
    if (mStopping) return;
    // Out of sockets: trying again at once would fail again and keep the loop busy.
    if (error) return AcceptLater();
    Accept();
    Welcome(std::move(socket));
  });
}

void Server::Welcome(asio::ip::tcp::socket socket) {
  asio::error_code error;
  const auto peer = socket.remote_endpoint(error);
  if (error || mConnections.size() >= mOptions.maxUsers + kMaxWaitingClients + kMaxClosing) return;
  const auto connection = std::make_shared<Connection>(std::move(socket), ++mLastId, *this);
  mConnections[connection->GetId()] = connection;
  mCore.Connect(connection->GetId(), *connection, peer.address().to_string(), Clock::now());
  connection->Start();
}

void Server::AcceptLater() {
  mAcceptTimer.expires_after(kAcceptPause);
  mAcceptTimer.async_wait([this](asio::error_code error) {
    if (!error && !mStopping) Accept();
  });
}

void Server::Tick() {
  mTickTimer.expires_after(kTickInterval);
  mTickTimer.async_wait([this](asio::error_code error) {
    if (!error) Tick();
  });
  const TimePoint now = Clock::now();
  for (const auto& [id, connection] : mConnections) connection->CheckDeadline(now);
  if (mStopping && (mConnections.empty() || now >= mStopAtLatest)) return mContext.stop();
  mCore.Tick(now);
}

void Server::BeginStop() {
  if (mStopping) return;
  const TimePoint now = Clock::now();
  mLog.Event("stopping", now);
  mStopping = true;
  mStopAtLatest = now + kStopTimeout;
  asio::error_code ignored;
  mAcceptor.close(ignored);
  mAcceptTimer.cancel();
  mCore.Shutdown(now);
}

}  // namespace tolva
