#pragma once

#include <memory>
#include <tuple>
#include <utility>

#include "protocol/AreaPackets.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "protocol/LoginPackets.h"
#include "protocol/MusicPackets.h"
#include "protocol/Packet.h"

namespace tolva {

template <typename... Packets>
struct TypeList {
  static constexpr std::size_t kSize = sizeof...(Packets);
};

// Every packet class. Creating, reading, writing and printing packets all use this list: add a new class here.
using AllPackets =
    TypeList<Packet, PacketInternConnect, PacketInternListen, PacketInternNewConnection, PacketInternDisconnect,
             PacketInternConnectionLost, PacketInternPacketDamaged, PacketInternTerminate, PacketInternPing,
             PacketInternPong, PacketInternConnectionInfo, PacketInternCentralMailbox, PacketInternManagerMailbox,
             PacketInternRepository, PacketInternAddUser, PacketInternRemoveUser, PacketInternResend,
             PacketInternStatus, PacketConnectionRequest, PacketLoginRequest, PacketLoginAccept, PacketLoginDeny,
             PacketLogout, PacketChatMsg, PacketChatUsers, PacketEnterChatRequest, PacketEnterChatAccept,
             PacketEnterChatDeny, PacketUserInGame, PacketQuit, PacketServerInfo, PacketClientInfo, PacketKick,
             PacketAreaGround, PacketAreaVolu, PacketAreaVersion, PacketEnterGameRequest, PacketEnterGameAccept,
             PacketEnterGameDeny, PacketGameChatMsg, PacketMoveRequest, PacketMove, PacketCharPosition, PacketAddChar,
             PacketRemoveChar, PacketDarkness, PacketMusicPlay, PacketMusicPause, PacketMusicStop>;

// Calls `visitor` with the packet as its own class. Returns false without a call when no class has the code or when the
// packet is of another class.
template <typename PacketType, typename Visitor, typename... Packets>
bool VisitPacket(PacketType& packet, Visitor&& visitor, TypeList<Packets...>) {
  const auto visitIf = [&](auto* typed) {
    if (typed != nullptr) visitor(*typed);
    return typed != nullptr;
  };
  return (visitIf(PacketCast<Packets>(&packet)) || ...);
}

template <typename PacketType, typename Visitor>
bool VisitPacket(PacketType& packet, Visitor&& visitor) {
  return VisitPacket(packet, std::forward<Visitor>(visitor), AllPackets{});
}

// Whether the packet's code is its class's. Never act on a packet that claims to be of another class.
inline bool IsGenuine(const Packet& packet) {
  return VisitPacket(packet, [](const auto&) {});
}

// Calls `visitor(field name, member)` for each field of the packet, in order.
template <typename PacketType, typename Visitor>
void VisitFields(PacketType& packet, Visitor&& visitor) {
  std::apply([&](const auto&... field) { (visitor(field.name, packet.*(field.member)), ...); }, PacketType::Fields());
}

template <typename... Packets>
std::unique_ptr<Packet> CreatePacket(PacketCode code, TypeList<Packets...>) {
  std::unique_ptr<Packet> packet;
  const auto createIf = [&](auto create, PacketCode ownCode) {
    if (code == ownCode) packet = create();
    return code == ownCode;
  };
  static_cast<void>(
      (createIf([]() -> std::unique_ptr<Packet> { return std::make_unique<Packets>(); }, Packets::kCode) || ...));
  return packet;
}

// Makes a packet of the code's class with default fields. Null when no class has the code.
inline std::unique_ptr<Packet> CreatePacket(PacketCode code) { return CreatePacket(code, AllPackets{}); }

}  // namespace tolva
