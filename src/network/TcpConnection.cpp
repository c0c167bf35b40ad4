#include "network/TcpConnection.h"

#include <utility>

#include <SDL.h>
#include <SDL_net.h>

#include "foundation/Guard.h"
#include "network/SocketControl.h"
#include "protocol/InternPackets.h"

namespace tolva {
namespace {

bool sNetworkInitialized = false;
std::int32_t sConnectionCount = 0;

// Packets do not close their sockets, so accepted sockets that nobody adopted would stay open.
void CloseUnadopted(Mailbox& mailbox) {
  while (const std::unique_ptr<Packet> packet = mailbox.Get()) {
    const auto* connection = PacketCast<PacketInternNewConnection>(packet.get());
    if (connection != nullptr && connection->mSdlSock != nullptr) SDLNet_TCP_Close(connection->mSdlSock);
  }
}

}  // namespace

TcpConnection::NetworkUse::NetworkUse() {
  if (!sNetworkInitialized) sNetworkInitialized = SDLNet_Init() == 0;
  ++sConnectionCount;
}

TcpConnection::NetworkUse::~NetworkUse() {
  if (--sConnectionCount > 0 || !sNetworkInitialized) return;
  SDLNet_Quit();
  sNetworkInitialized = false;
}

TcpConnection::TcpConnection() {
  Guard("TcpConnection", "TcpConnection", [&] { mSocketControl = std::make_unique<SocketControl>(&mOutgoing); });
}

TcpConnection::~TcpConnection() {
  ErrHandler errHandler;  // a destructor must not throw
  Report(errHandler, "TcpConnection", "~TcpConnection", [&] {
    Pass(std::make_unique<PacketInternTerminate>());
    mSocketControl->WaitThread(nullptr);
    mSocketControl.reset();
    CloseUnadopted(mOutgoing);
    CloseUnadopted(mIncoming);
  });
}

bool TcpConnection::HasStarted() const { return mSocketControl->HasStarted(); }

bool TcpConnection::Connect(const char* host, std::uint16_t port) {
  return Guard("TcpConnection", "Connect", [&] { return Pass(std::make_unique<PacketInternConnect>(host, port)); });
}

void TcpConnection::Send(std::unique_ptr<Packet> packet) {
  Guard("TcpConnection", "Send", [&] {
    Pass(std::move(packet));
    SDL_Delay(kSendPauseMs);
  });
}

std::unique_ptr<Packet> TcpConnection::Recieve() {
  return Guard("TcpConnection", "Recieve", [&] {
    std::unique_ptr<Packet> packet = FetchMail();
    if (const auto* info = PacketCast<PacketInternConnectionInfo>(packet.get())) {
      mPeerHost = info->mUintHost;
      mPeerPort = info->mUintPort;
      mConnected = true;
    }
    return packet;
  });
}

std::unique_ptr<Packet> TcpConnection::FetchMail() {
  return Guard("TcpConnection", "FetchMail", [&] { return mIncoming.Get(); });
}

bool TcpConnection::SendMail(Mailbox* target, Packet* packet) {
  return Guard("TcpConnection", "SendMail", [&] {
    packet->mObjSource = &mIncoming;
    return target != nullptr && target->Put(packet);
  });
}

bool TcpConnection::Pass(std::unique_ptr<Packet> packet) {
  if (!SendMail(&mOutgoing, packet.get())) return false;
  static_cast<void>(packet.release());  // the mailbox owns it now
  return true;
}

}  // namespace tolva
