#pragma once

#include <cstdint>
#include <memory>

#include "protocol/Packet.h"
#include "threads/Mailbox.h"

namespace tolva {

class SocketControl;

// One TCP connection, used by the thread that owns the object. No operation touches a socket: a SocketControl does that
// on a thread of its own, and the two exchange packets through two mailboxes.
class TcpConnection {
 public:
  // The first connection of the process initializes SDL_net.
  TcpConnection();
  // Closes the socket and waits until the socket control's thread has ended, which takes as long as a connect or send
  // in progress. The last connection of the process shuts SDL_net down.
  virtual ~TcpConnection();

  TcpConnection(const TcpConnection&) = delete;
  TcpConnection& operator=(const TcpConnection&) = delete;

  // Starts to connect to a host name or dotted IPv4 address; the port is in host byte order. Returns at once, false if
  // the request could not be sent to the socket control. Recieve delivers the outcome: a PacketInternConnectionInfo or
  // a PacketInternConnectionLost.
  bool Connect(const char* host, std::uint16_t port);
  // The pause after each Send.
  static constexpr std::uint32_t kSendPauseMs = 100;
  // Has the packet sent, then blocks the caller for the pause, which limits how fast it can send. Without a connection
  // the packet is dropped. Intern packets are commands to the socket control.
  void Send(std::unique_ptr<Packet> packet);
  // The oldest packet from the peer or the socket control, or null. Never waits.
  std::unique_ptr<Packet> Recieve();

  // Whether the socket control's thread could be started; without it nothing works.
  bool HasStarted() const;

  // Whether a connection has ever been established; a loss does not clear it.
  bool IsConnected() const { return mConnected; }
  // The peer's address in network byte order; 0 before the connection is established.
  std::uint32_t GetPeerHost() const { return mPeerHost; }
  std::uint16_t GetPeerPort() const { return mPeerPort; }

  // Takes the oldest packet out of the incoming mailbox. Null when there is none.
  std::unique_ptr<Packet> FetchMail();
  // Makes the incoming mailbox the packet's source, to which the socket control then reports, and puts the packet into
  // `target`. False when that fails: the caller then still owns the packet.
  bool SendMail(Mailbox* target, Packet* packet);

 private:
  // Keeps SDL_net initialized while any object of it exists. Constructed and destroyed on one thread at a time.
  struct NetworkUse {
    NetworkUse();
    ~NetworkUse();
    NetworkUse(const NetworkUse&) = delete;
    NetworkUse& operator=(const NetworkUse&) = delete;
  };

  // Gives the packet to the socket control, or deletes it and returns false.
  bool Pass(std::unique_ptr<Packet> packet);

  NetworkUse mNetworkUse;  // first, so that SDL_net outlives the thread and the sockets
  std::unique_ptr<SocketControl> mSocketControl;
  Mailbox mIncoming;
  Mailbox mOutgoing;
  std::uint32_t mPeerHost = 0;
  std::uint16_t mPeerPort = 0;
  bool mConnected = false;
};

}  // namespace tolva
