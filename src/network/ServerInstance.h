#pragma once

#include <cstdint>
#include <memory>

#include "foundation/Ini.h"
#include "network/TcpConnection.h"
#include "threads/ManagerThread.h"

namespace tolva {

// The client's network thread, between the controller and the game server. Its mailbox takes what goes to the server;
// everything from the server reaches the controller's mailbox with this thread's mailbox as its source. It connects
// when the first PacketLoginRequest comes, once per run, to the host and port in section NETWORK of client.ini. A
// failed or lost connection reaches the controller as PacketInternConnectionLost.
class ServerInstance final : public ManagerThread {
 public:
  // Reads client.ini and starts the thread, which ends when it is sent a PacketQuit. A PacketInternCentralMailbox must
  // announce the controller's mailbox first. `mailbox` stays with the caller and must outlive the thread.
  explicit ServerInstance(Mailbox* mailbox);
  // The thread must have ended.
  ~ServerInstance() override;

  bool HasStarted() const override { return ManagerThread::HasStarted() && mConnection.HasStarted(); }
  void Run() override;
  void HandleMyMailbox() override;

 private:
  void HandleLoginRequest(std::unique_ptr<Packet> packet);
  // Passes one packet from the connection to the controller, unless that has too much mail already.
  void HandleTcpConnection();
  void SendTcpConnection(std::unique_ptr<Packet> packet);

  TcpConnection mConnection;
  Mailbox* mCentralMailbox = nullptr;
  bool mConnecting = false;  // stays set after a failed connect, so that there is no second one
  std::unique_ptr<Ini> mSettings;
  char mHost[256] = "";
  std::uint16_t mPort = 0;
};

}  // namespace tolva
