#pragma once

#include <cstdint>
#include <memory>

#include "protocol/Packet.h"
#include "threads/Mailbox.h"

namespace tolva {

class SocketControl;

// One TCP connection, for the thread that owns the object. No call touches a socket: a SocketControl with a thread of
// its own does that, and the two exchange packets through two mailboxes.
class TcpConnection {
 public:
  // The first connection of the process initialises SDL_net.
  TcpConnection();
  // Closes the socket, waits for the socket control's thread to end (which may be as long as a connect or a send of it
  // blocks), and with the process's last connection shuts SDL_net down.
  virtual ~TcpConnection();

  TcpConnection(const TcpConnection&) = delete;
  TcpConnection& operator=(const TcpConnection&) = delete;

  // Starts to connect to a host name or dotted IPv4 address; the port is a plain number. Returns at once, false when
  // the order could not be given. The outcome arrives through Recieve: a PacketInternConnectionInfo or a
  // PacketInternConnectionLost.
  bool Connect(const char* host, std::uint16_t port);
  // How long Send holds the caller.
  static constexpr std::uint32_t kSendPauseMs = 100;
  // Hands the packet on to be sent, then holds the caller for a pause, which bounds how fast it can send. Without a
  // working connection the packet is dropped. Intern packets are commands to the socket control.
  void Send(std::unique_ptr<Packet> packet);
  // The oldest packet that the peer sent or the socket control reported, or null. Never waits.
  std::unique_ptr<Packet> Recieve();

  // Whether the socket control's thread was started; without it every order is in vain.
  bool HasStarted() const;

  // Whether a connection has ever worked; a loss does not clear it.
  bool IsConnected() const { return mConnected; }
  // The peer's address in network byte order, 0 until it is known.
  std::uint32_t GetPeerHost() const { return mPeerHost; }
  std::uint16_t GetPeerPort() const { return mPeerPort; }

  // The oldest packet of the incoming mailbox, which the caller owns, or null.
  std::unique_ptr<Packet> FetchMail();
  // Stamps the packet with the incoming mailbox, where the socket control then reports to, and puts it into `target`.
  // False when that fails: the packet stays the caller's.
  bool SendMail(Mailbox* target, Packet* packet);

 private:
  // Keeps SDL_net initialised while any object of it exists. Made and destroyed on one thread at a time.
  struct NetworkUse {
    NetworkUse();
    ~NetworkUse();
    NetworkUse(const NetworkUse&) = delete;
    NetworkUse& operator=(const NetworkUse&) = delete;
  };

  NetworkUse mNetworkUse;  // first, so that the network outlives the thread and the sockets
  std::unique_ptr<SocketControl> mSocketControl;
  Mailbox mIncoming;
  Mailbox mOutgoing;
  std::uint32_t mPeerHost = 0;
  std::uint16_t mPeerPort = 0;
  bool mConnected = false;
};

}  // namespace tolva
