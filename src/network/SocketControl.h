#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <SDL_net.h>

#include "protocol/InternPackets.h"
#include "protocol/PacketConverter.h"
#include "protocol/RecordCutter.h"
#include "threads/ManagerThread.h"

namespace tolva {

// With more packets than this waiting for its owner, a socket control leaves the rest with the peer. Nothing that the
// player does waits behind them, so they may be many: one read of the socket can bring hundreds.
constexpr std::uint32_t kSocketHighWater = 512;

// The thread that owns one TCP socket. Takes commands and packets to send from its mailbox, and reports everything that
// the socket brings, and every failure, to its central mailbox: that of the first sender, its owner. As a client it
// connects, or adopts an accepted socket; as a server it listens and reports accepted sockets. Others reach it through
// the two mailboxes only, so the calls that may block (resolving, connecting, sending) hold up nobody else.
//
// A failed connect or listen, and a connection that ends, are reported as PacketInternConnectionLost; afterwards it is
// idle and drops what it is given to send until the owner tells it to connect again.
class SocketControl final : public ManagerThread {
 public:
  // Starts the thread, which ends when the owner sends a PacketInternTerminate. SDL_net must be initialised for as long
  // as the object lives.
  explicit SocketControl(Mailbox* mailbox);
  // The thread must have ended.
  ~SocketControl() override = default;

  void Run() override;
  void HandleMyMailbox() override;

 private:
  enum class Role { Client, Server };
  struct SocketCloser {
    void operator()(_TCPsocket* socket) const { SDLNet_TCP_Close(socket); }
  };
  struct SocketSetFreer {
    void operator()(_SDLNet_SocketSet* set) const { SDLNet_FreeSocketSet(set); }
  };
  using Socket = std::unique_ptr<_TCPsocket, SocketCloser>;
  using PacketBatch = std::array<std::unique_ptr<Packet>, 16>;

  // Commands and pings.
  void HandleInternPacket(Packet& packet);
  void HandlePeerPacket(Packet& packet);
  void HandleCommand(Packet& packet);
  void Open(const char* host, std::uint16_t port, Role role);
  void Adopt(PacketInternNewConnection& packet);
  void Use(Socket socket, const IPaddress& address, Role role);

  // The socket. It is active while there is one.
  bool IsActive() const { return mSocket != nullptr; }
  void AddSocket(Socket socket);
  void RemoveSocket();
  void CheckSocket();
  void HandleSocketAsServer();
  void HandleSocketAsClient();

  // Sends, when there is a peer to send to. What fails is reported by CheckSocket, after what the peer still had to
  // say.
  void SendToPeer(const Packet& packet);
  // Whether all bytes of the record were sent.
  bool Send(const Packet& packet);
  // Fills `packets` from its start, in the order of the stream, and returns how many; -1 when the stream has ended or
  // cannot go on. Reads from the socket only when nothing that it holds is left to be cut.
  int Recieve(PacketBatch& packets);

  bool IsCentralMailboxFull() const;
  void ReportPacket(std::unique_ptr<Packet> packet);
  void ReportFailure();
  void ReportLoss();

  Mailbox* mCentralMailbox = nullptr;
  std::unique_ptr<_SDLNet_SocketSet, SocketSetFreer> mSocketSet;
  IPaddress mPeerAddress = {};
  Socket mSocket;
  Role mRole = Role::Client;
  bool mMoreToCut = false;   // a full batch may have left whole records behind
  bool mSendFailed = false;  // the peer is gone; a loss follows when everything it sent has been delivered
  PacketConverter mConverter;
  RecordCutter mCutter;
  std::array<std::uint8_t, kRecordBufferSize> mSendBuffer = {};
};

}  // namespace tolva
