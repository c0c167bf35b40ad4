#pragma once

#include "protocol/ChatPackets.h"
#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "protocol/Packet.h"

namespace tolva {

struct PacketEnterGameRequest final : PacketOf<PacketEnterGameRequest, 800, "PacketEnterGameRequest"> {};
struct PacketEnterGameAccept final : PacketOf<PacketEnterGameAccept, 801, "PacketEnterGameAccept"> {};

struct PacketEnterGameDeny final : PacketOf<PacketEnterGameDeny, 802, "PacketEnterGameDeny">, DenialReason {
  PacketEnterGameDeny() = default;
  explicit PacketEnterGameDeny(const char* reason) : DenialReason(reason) {}

  using DenialReason::Fields;
};

// A chat line, to appear over the character that stands on the field.
struct PacketGameChatMsg final : PacketOf<PacketGameChatMsg, 820, "PacketGameChatMsg">, FieldPosition {
  PacketGameChatMsg() { mStrMsg[0] = '\0'; }
  PacketGameChatMsg(const FieldPosition& field, const char* user, const char* message) : FieldPosition(field) {
    CopyText(mStrUser, user);
    CopyText(mStrMsg, message);
  }

  char mStrUser[kUserNameCapacity] = "";
  char mStrMsg[kChatTextCapacity];  // as in PacketChatMsg

  static constexpr auto Fields() {
    return std::tuple_cat(std::tuple{PacketField{"mStrUser", &PacketGameChatMsg::mStrUser},
                                     PacketField{"mStrMsg", &PacketGameChatMsg::mStrMsg}},
                          FieldPosition::Fields());
  }
};

// Asks the server to let the player step one field.
struct PacketMoveRequest final : PacketOf<PacketMoveRequest, 850, "PacketMoveRequest"> {
  PacketMoveRequest() = default;
  explicit PacketMoveRequest(Direction direction) : mEnmDirection(direction) {}

  Direction mEnmDirection = Direction::None;

  static constexpr auto Fields() { return std::tuple{PacketField{"mEnmDirection", &PacketMoveRequest::mEnmDirection}}; }
};

// A character steps from the field in the direction.
struct PacketMove final : PacketOf<PacketMove, 851, "PacketMove">, FieldPosition {
  PacketMove() = default;
  PacketMove(const FieldPosition& from, Direction direction) : FieldPosition(from), mEnmDirection(direction) {}

  Direction mEnmDirection = Direction::None;

  static constexpr auto Fields() {
    return std::tuple_cat(FieldPosition::Fields(),
                          std::tuple{PacketField{"mEnmDirection", &PacketMove::mEnmDirection}});
  }
};

// Places the player's own character on the field, and the map around it.
struct PacketCharPosition final : PacketOf<PacketCharPosition, 870, "PacketCharPosition">, FieldPosition {
  PacketCharPosition() = default;
  explicit PacketCharPosition(const FieldPosition& field) : FieldPosition(field) {}

  using FieldPosition::Fields;
};

// Another character appears on the field.
struct PacketAddChar final : PacketOf<PacketAddChar, 871, "PacketAddChar">, FieldPosition {
  PacketAddChar() = default;
  explicit PacketAddChar(const FieldPosition& field) : FieldPosition(field) {}

  using FieldPosition::Fields;
};

// Whoever stands on the field disappears.
struct PacketRemoveChar final : PacketOf<PacketRemoveChar, 872, "PacketRemoveChar">, FieldPosition {
  PacketRemoveChar() = default;
  explicit PacketRemoveChar(const FieldPosition& field) : FieldPosition(field) {}

  using FieldPosition::Fields;
};

// How dark the world is: 0 in full daylight, 255 in blackness.
struct PacketDarkness final : PacketOf<PacketDarkness, 900, "PacketDarkness"> {
  PacketDarkness() = default;
  explicit PacketDarkness(std::uint8_t darkness) : mByDarkness(darkness) {}

  std::uint8_t mByDarkness = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mByDarkness", &PacketDarkness::mByDarkness}}; }
};

}  // namespace tolva
