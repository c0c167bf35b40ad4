#include "network/TcpConnection.h"

#include <SDL.h>
#include <SDL_net.h>

#include "foundation/Guard.h"
#include "network/SocketControl.h"
#include "protocol/InternPackets.h"

namespace tolva {
namespace {

bool networkInitialised = false;
std::int32_t connectionCount = 0;

// Accepted sockets that nobody adopted would stay open when their packets are deleted.
void CloseUnadopted(Mailbox& mailbox) {
  while (const auto packet = mailbox.Get()) {
    const auto* connection = PacketCast<PacketInternNewConnection>(packet.get());
    if (connection != nullptr && connection->mSdlSock != nullptr) SDLNet_TCP_Close(connection->mSdlSock);
  }
}

}  // namespace

TcpConnection::NetworkUse::NetworkUse() {
  if (!networkInitialised) networkInitialised = SDLNet_Init() == 0;
  ++connectionCount;
}

TcpConnection::NetworkUse::~NetworkUse() {
  if (--connectionCount > 0 || !networkInitialised) return;
  SDLNet_Quit();
  networkInitialised = false;
}

TcpConnection::TcpConnection() {
  Guard("TcpConnection", "TcpConnection", [&] { mSocketControl = std::make_unique<SocketControl>(&mOutgoing); });
}

TcpConnection::~TcpConnection() {
  ErrHandler errHandler;  // nothing may leave a destructor
  Report(errHandler, "TcpConnection", "~TcpConnection", [&] {
    auto terminate = std::make_unique<PacketInternTerminate>();
    if (SendMail(&mOutgoing, terminate.get())) static_cast<void>(terminate.release());
    mSocketControl->WaitThread(nullptr);
    mSocketControl.reset();
    CloseUnadopted(mOutgoing);
    CloseUnadopted(mIncoming);
  });
}

bool TcpConnection::HasStarted() const { return mSocketControl->HasStarted(); }

bool TcpConnection::Connect(const char* host, std::uint16_t port) {
  return Guard("TcpConnection", "Connect", [&] {
    auto connect = std::make_unique<PacketInternConnect>(host, port);
    if (!SendMail(&mOutgoing, connect.get())) return false;
    static_cast<void>(connect.release());
    return true;
  });
}

void TcpConnection::Send(std::unique_ptr<Packet> packet) {
  Guard("TcpConnection", "Send", [&] {
    if (SendMail(&mOutgoing, packet.get())) static_cast<void>(packet.release());
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

}  // namespace tolva
