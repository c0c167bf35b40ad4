#include "network/SocketControl.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

constexpr std::uint32_t kPauseMs = 5;

bool IsIntern(const Packet& packet) { return packet.mEnmCode <= kLastInternCode; }

}  // namespace

SocketControl::SocketControl(Mailbox* mailbox) : ManagerThread(mailbox) {
  Report(mErrHandler, "SocketControl", "SocketControl", [&] {
    mInfoHandler.SetModuleName("SocketControl");
    mSocketSet.reset(SDLNet_AllocSocketSet(1));
    if (mSocketSet == nullptr) throw new Error("SocketControl", "SocketControl", SDLNet_GetError());
    Start();
  });
}

void SocketControl::Run() {
  RunPasses("SocketControl", kPauseMs, [&] {
    CheckSocket();
    HandleMyMailbox();
  });
}

void SocketControl::HandleMyMailbox() {
  Guard("SocketControl", "HandleMyMailbox", [&] {
    const std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr) return;
    if (mCentralMailbox == nullptr) mCentralMailbox = packet->mObjSource;
    if (IsIntern(*packet)) {
      HandleInternPacket(*packet);
    } else {
      SendToPeer(*packet);
    }
  });
}

void SocketControl::HandleInternPacket(Packet& packet) {
  Guard("SocketControl", "HandleInternPacket", [&] {
    // A command must come from the owner's mailbox; packets from the wire have no source.
    const bool fromOwner = mCentralMailbox != nullptr && packet.mObjSource == mCentralMailbox;
    if (fromOwner) {
      HandleCommand(packet);
    } else {
      HandlePeerPacket(packet);
    }
  });
}

void SocketControl::HandlePeerPacket(Packet& packet) {
  Dispatch(
      packet, [&](const PacketInternPing& ping) { SendToPeer(PacketInternPong(ping.mUintTick)); },
      [](PacketInternPong& pong) { pong.mUintTick = GetTicks() - pong.mUintTick; });
}

void SocketControl::HandleCommand(Packet& packet) {
  Dispatch(
      packet, [&](const PacketInternConnect& connect) { Open(connect.mStrHost, connect.mUintPort, Role::Client); },
      [&](const PacketInternListen& listen) { Open(nullptr, listen.mUintPort, Role::Server); },
      [&](PacketInternNewConnection& connection) { Adopt(connection); },
      [&](const PacketInternDisconnect&) { RemoveSocket(); },
      [&](const PacketInternTerminate&) {
        RemoveSocket();
        mRunning = false;
      },
      [&](PacketInternPing& ping) {
        ping.mUintTick = GetTicks();
        SendToPeer(ping);
      });
}

void SocketControl::Open(const char* host, std::uint16_t port, Role role) {
  RemoveSocket();
  IPaddress address = {};
  if (SDLNet_ResolveHost(&address, host, port) != 0) return ReportFailure();
  // Given one of these two addresses, SDL_net would listen instead of connecting.
  const bool isPeer = address.host != INADDR_ANY && address.host != INADDR_NONE;
  if (role == Role::Client && !isPeer) return ReportFailure();
  Socket socket(SDLNet_TCP_Open(&address));
  if (socket == nullptr) return ReportFailure();
  Use(std::move(socket), address, role);
}

void SocketControl::Adopt(PacketInternNewConnection& packet) {
  RemoveSocket();
  Socket socket(std::exchange(packet.mSdlSock, nullptr));
  if (socket == nullptr) return ReportFailure();
  Use(std::move(socket), {packet.mUintHost, packet.mUintPort}, Role::Client);
}

void SocketControl::Use(Socket socket, const IPaddress& address, Role role) {
  mPeerAddress = address;
  mRole = role;
  AddSocket(std::move(socket));
  ReportPacket(std::make_unique<PacketInternConnectionInfo>(address.host, address.port));
}

void SocketControl::AddSocket(Socket socket) {
  Guard("SocketControl", "AddSocket", [&] {
    SDLNet_TCP_AddSocket(mSocketSet.get(), socket.get());  // cannot fail: the set is empty and has room for one
    mSocket = std::move(socket);

    std::uint8_t host[4];
    std::memcpy(host, &mPeerAddress.host, sizeof host);
    char name[24];
    std::snprintf(name, sizeof name, "%03d.%03d.%03d.%03d:%05d", host[0], host[1], host[2], host[3],
                  SDL_SwapBE16(mPeerAddress.port));
    mInfoHandler.SetModuleName(name);
  });
}

void SocketControl::RemoveSocket() {
  if (!IsActive()) return;
  SDLNet_TCP_DelSocket(mSocketSet.get(), mSocket.get());
  mSocket.reset();
  mDecoder.Clear();
  mMoreToDecode = false;
  mSendFailed = false;
}

void SocketControl::CheckSocket() {
  Guard("SocketControl", "CheckSocket", [&] {
    if (!IsActive() || IsCentralMailboxFull()) return;
    if (!mMoreToDecode) {
      const int ready = SDLNet_CheckSockets(mSocketSet.get(), 0);
      if (ready < 0 || (ready == 0 && mSendFailed)) return ReportLoss();
      if (ready == 0) return;
    }
    if (mRole == Role::Server) {
      HandleSocketAsServer();
    } else {
      HandleSocketAsClient();
    }
  });
}

void SocketControl::HandleSocketAsServer() {
  Guard("SocketControl", "HandleSocketAsServer", [&] {
    Socket accepted(SDLNet_TCP_Accept(mSocket.get()));
    if (accepted == nullptr) return;
    const IPaddress* peer = SDLNet_TCP_GetPeerAddress(accepted.get());
    if (peer == nullptr) return;
    auto packet = std::make_unique<PacketInternNewConnection>(accepted.get(), peer->host, peer->port);
    if (!SendMail(mCentralMailbox, packet.get())) return;
    static_cast<void>(packet.release());    // the mailbox owns it now,
    static_cast<void>(accepted.release());  // and whoever holds the packet owns the socket
  });
}

void SocketControl::HandleSocketAsClient() {
  Guard("SocketControl", "HandleSocketAsClient", [&] {
    PacketBatch packets;
    const int stored = Recieve(packets);
    if (stored < 0) return ReportLoss();
    for (int i = 0; i < stored; ++i) {
      if (IsIntern(*packets[i])) HandleInternPacket(*packets[i]);
      ReportPacket(std::move(packets[i]));
    }
  });
}

int SocketControl::Recieve(PacketBatch& packets) {
  return Guard("SocketControl", "Recieve", [&] {
    if (!mMoreToDecode) {
      const auto room = mDecoder.Room();
      const int count = SDLNet_TCP_Recv(mSocket.get(), room.data(), static_cast<int>(room.size()));
      if (count <= 0) return -1;
      mDecoder.Commit(static_cast<std::size_t>(count));
    }
    mMoreToDecode = true;
    int stored = 0;
    while (stored < kMaxBatch) {
      auto [outcome, packet] = mDecoder.Next();
      if (outcome == RecordDecoder::Outcome::Incomplete) {
        mMoreToDecode = false;
        return stored;
      }
      // After good records, deliver these first: the next call finds the break again.
      if (outcome == RecordDecoder::Outcome::Broken) return stored > 0 ? stored : -1;
      packets[stored++] = std::move(packet);
    }
    return stored;
  });
}

void SocketControl::SendToPeer(const Packet& packet) {
  if (!IsActive() || mRole == Role::Server || mSendFailed) return;
  mSendFailed = !Send(packet);
}

bool SocketControl::Send(const Packet& packet) {
  return Guard("SocketControl", "Send", [&] {
    if (!IsActive()) return false;
    const auto length = static_cast<int>(mConverter.WriteBuffer(mSendBuffer.data(), packet));
    return SDLNet_TCP_Send(mSocket.get(), mSendBuffer.data(), length) == length;
  });
}

bool SocketControl::IsCentralMailboxFull() const {
  return mCentralMailbox != nullptr && mCentralMailbox->GetCount() > kSocketHighWater;
}

void SocketControl::ReportPacket(std::unique_ptr<Packet> packet) {
  ManagerThread::Send(mCentralMailbox, std::move(packet));
}

void SocketControl::ReportFailure() { ReportPacket(std::make_unique<PacketInternConnectionLost>()); }

void SocketControl::ReportLoss() {
  RemoveSocket();
  ReportFailure();
}

}  // namespace tolva
