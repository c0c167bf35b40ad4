#pragma once

#include <cstdint>
#include <memory>

#include "foundation/Ini.h"
#include "network/TcpConnection.h"
#include "threads/ManagerThread.h"

namespace tolva {

// The client's network thread, between the controller and the game server. Packets in its mailbox go to the server;
// packets from the server go to the controller's mailbox, with this thread's mailbox as their source. The first
// PacketLoginRequest makes it connect, once per run, to the host and port in section NETWORK of client.ini. The
// controller learns of a failed or lost connection by a PacketInternConnectionLost.
class ServerInstance final : public ManagerThread {
 public:
  // Reads client.ini and starts the thread, which ends when it gets a PacketQuit. Borrows `mailbox`, which must outlive
  // the thread. The first packet to send is a PacketInternCentralMailbox with the controller's mailbox.
  explicit ServerInstance(Mailbox* mailbox);
  // The thread must have ended.
  ~ServerInstance() override;

  bool HasStarted() const override { return ManagerThread::HasStarted() && mConnection.HasStarted(); }
  void Run() override;
  void HandleMyMailbox() override;

 private:
  void HandleLoginRequest(std::unique_ptr<Packet> packet);
  // Passes one packet from the connection to the controller, unless too much of its mail waits already.
  void HandleTcpConnection();
  void SendTcpConnection(std::unique_ptr<Packet> packet);

  TcpConnection mConnection;
  Mailbox* mCentralMailbox = nullptr;
  bool mConnecting = false;  // stays set after a failed connect, so that no second one is made
  std::unique_ptr<Ini> mSettings;
  char mHost[256] = "";
  std::uint16_t mPort = 0;
};

}  // namespace tolva
