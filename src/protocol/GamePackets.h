#pragma once

#include "protocol/ChatPackets.h"
#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "protocol/Packet.h"

namespace tolva {

struct PacketEnterGameRequest final : PacketOf<PacketEnterGameRequest, 800, "PacketEnterGameRequest"> {};
struct PacketEnterGameAccept final : PacketOf<PacketEnterGameAccept, 801, "PacketEnterGameAccept"> {};

struct PacketEnterGameDeny final : PacketOf<PacketEnterGameDeny, 802, "PacketEnterGameDeny"> {
  char mStrReason[kReasonCapacity] = "";

  static constexpr auto Fields() { return std::tuple{PacketField{"mStrReason", &PacketEnterGameDeny::mStrReason}}; }
};

// A chat line spoken by the character on the given field.
struct PacketGameChatMsg final : PacketOf<PacketGameChatMsg, 820, "PacketGameChatMsg">, FieldPosition {
  char mStrUser[kUserNameCapacity] = "";
  char mStrMsg[kChatTextCapacity] = "";

  static constexpr auto Fields() {
    return std::tuple_cat(std::tuple{PacketField{"mStrUser", &PacketGameChatMsg::mStrUser},
                                     PacketField{"mStrMsg", &PacketGameChatMsg::mStrMsg}},
                          FieldPosition::Fields());
  }
};

// The player asks to step one field.
struct PacketMoveRequest final : PacketOf<PacketMoveRequest, 850, "PacketMoveRequest"> {
  PacketMoveRequest() = default;
  explicit PacketMoveRequest(Direction direction) : mEnmDirection(direction) {}

  Direction mEnmDirection = Direction::None;

  static constexpr auto Fields() { return std::tuple{PacketField{"mEnmDirection", &PacketMoveRequest::mEnmDirection}}; }
};

// The character on the given field steps one field.
struct PacketMove final : PacketOf<PacketMove, 851, "PacketMove">, FieldPosition {
  Direction mEnmDirection = Direction::None;

  static constexpr auto Fields() {
    return std::tuple_cat(FieldPosition::Fields(),
                          std::tuple{PacketField{"mEnmDirection", &PacketMove::mEnmDirection}});
  }
};

// Where the player's own character stands; the map is placed around it.
struct PacketCharPosition final : PacketOf<PacketCharPosition, 870, "PacketCharPosition">, FieldPosition {
  using FieldPosition::Fields;
};

// A character comes onto the field.
struct PacketAddChar final : PacketOf<PacketAddChar, 871, "PacketAddChar">, FieldPosition {
  using FieldPosition::Fields;
};

// The character on the field leaves the view.
struct PacketRemoveChar final : PacketOf<PacketRemoveChar, 872, "PacketRemoveChar">, FieldPosition {
  using FieldPosition::Fields;
};

// 0 is full daylight.
struct PacketDarkness final : PacketOf<PacketDarkness, 900, "PacketDarkness"> {
  std::uint8_t mByDarkness = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mByDarkness", &PacketDarkness::mByDarkness}}; }
};

}  // namespace tolva
