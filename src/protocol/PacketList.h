#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <tuple>
#include <type_traits>
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

namespace packet_list {

constexpr std::uint8_t kNoClass = 0xFF;

// The place in the list of the class with each code. A look-up costs the same for every class, which comparing with one
// class after the other does not; the price is a byte for each code up to the highest.
template <typename... Packets>
constexpr auto IndexClasses(TypeList<Packets...>) {
  static_assert(sizeof...(Packets) < kNoClass);
  constexpr PacketCode kHighest = std::max({Packets::kCode...});
  static_assert(kHighest < 4096, "codes this far apart need another look-up");
  std::array<std::uint8_t, kHighest + 1> places{};
  places.fill(kNoClass);
  std::uint8_t place = 0;
  ((places[Packets::kCode] = place++), ...);
  return places;
}
inline constexpr auto kPlaces = IndexClasses(AllPackets{});

}  // namespace packet_list

// Calls `visitor` with a std::type_identity of the code's class. Returns false without a call when no class has the
// code.
template <typename Visitor, typename... Packets>
bool VisitClass(PacketCode code, Visitor&& visitor, TypeList<Packets...>) {
  using Call = void (*)(Visitor&);
  static constexpr Call kCalls[] = {[](Visitor& called) { called(std::type_identity<Packets>()); }...};
  const std::uint8_t place = code < packet_list::kPlaces.size() ? packet_list::kPlaces[code] : packet_list::kNoClass;
  if (place == packet_list::kNoClass) return false;
  kCalls[place](visitor);
  return true;
}

template <typename Visitor>
bool VisitClass(PacketCode code, Visitor&& visitor) {
  return VisitClass(code, std::forward<Visitor>(visitor), AllPackets{});
}

// Calls `visitor` with the packet as its own class. Returns false without a call when no class has the code or when the
// packet is of another class.
template <typename PacketType, typename Visitor>
bool VisitPacket(PacketType& packet, Visitor&& visitor) {
  bool visited = false;
  VisitClass(packet.mEnmCode, [&]<typename T>(std::type_identity<T>) {
    auto* typed = PacketCast<T>(&packet);
    visited = typed != nullptr;
    if (visited) visitor(*typed);
  });
  return visited;
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

// Makes a packet of the code's class with default fields. Null when no class has the code.
inline std::unique_ptr<Packet> CreatePacket(PacketCode code) {
  std::unique_ptr<Packet> packet;
  VisitClass(code, [&]<typename T>(std::type_identity<T>) { packet = std::make_unique<T>(); });
  return packet;
}

}  // namespace tolva
