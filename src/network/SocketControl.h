#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <SDL_net.h>

#include "protocol/InternPackets.h"
#include "protocol/PacketConverter.h"
#include "protocol/RecordDecoder.h"
#include "threads/ManagerThread.h"

namespace tolva {

// Back-pressure: while more packets than this wait for its owner, a socket control does not read its socket. They may
// be many, because one read can deliver hundreds and nothing that the player does waits behind them.
constexpr std::uint32_t kSocketHighWater = 512;

// Runs one TCP socket on a thread of its own. Its mailbox brings commands and packets to send. Received packets and
// failures go to its central mailbox, that of the first sender, who is its owner. As a client it connects, or adopts an
// accepted socket; as a server it listens and reports accepted sockets. Other threads use only the two mailboxes, so
// calls that block (resolving, connecting, sending) block nobody else.
//
// A failed connect or listen and a lost connection are reported as PacketInternConnectionLost. The socket control is
// then idle and drops packets to send until its owner tells it to connect again.
class SocketControl final : public ManagerThread {
 public:
  // Starts the thread, which ends when the owner sends a PacketInternTerminate. SDL_net must stay initialized while the
  // object exists.
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
  static constexpr int kMaxBatch = 16;
  using PacketBatch = std::array<std::unique_ptr<Packet>, kMaxBatch>;

  // Commands and pings.
  void HandleInternPacket(Packet& packet);
  void HandlePeerPacket(Packet& packet);
  void HandleCommand(Packet& packet);
  void Open(const char* host, std::uint16_t port, Role role);
  void Adopt(PacketInternNewConnection& packet);
  void Use(Socket socket, const IPaddress& address, Role role);

  // The socket. The control is active while it has one.
  bool IsActive() const { return mSocket != nullptr; }
  void AddSocket(Socket socket);
  void RemoveSocket();
  void CheckSocket();
  void HandleSocketAsServer();
  void HandleSocketAsClient();

  // Sends, if there is a peer. CheckSocket reports a failure, once everything the peer sent has been delivered.
  void SendToPeer(const Packet& packet);
  // Whether all bytes of the record were sent.
  bool Send(const Packet& packet);
  // Stores packets from the start of `packets`, in the order of the stream, and returns their number; -1 when the
  // stream has ended or is broken. Reads the socket only when the decoder has no whole record left.
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
  bool mMoreToDecode = false;  // the decoder may hold more whole records than the last batch could take
  bool mSendFailed = false;    // the peer is gone; the loss is reported when everything it sent has been delivered
  PacketConverter mConverter;
  RecordDecoder mDecoder;
  std::array<std::uint8_t, kRecordBufferSize> mSendBuffer = {};
};

}  // namespace tolva
