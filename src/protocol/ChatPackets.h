#pragma once

#include <cstring>

#include "foundation/Text.h"
#include "protocol/LoginPackets.h"
#include "protocol/Packet.h"

namespace tolva {

// The speaker of lines that come from the server itself.
constexpr char kServerSpeaker[] = "*** ";

// A line of chat. The client leaves the user empty; the server fills in the sender's name.
struct PacketChatMsg final : PacketOf<PacketChatMsg, 400, "PacketChatMsg"> {
  PacketChatMsg() { mStrMsg[0] = '\0'; }
  PacketChatMsg(const char* user, const char* message) {
    CopyText(mStrUser, user);
    CopyText(mStrMsg, message);
  }

  // Whether the server itself speaks, not a user.
  bool IsFromServer() const { return std::strcmp(mStrUser, kServerSpeaker) == 0; }

  char mStrUser[kUserNameCapacity] = "";
  // What stands behind the terminating zero is left as it was: filling it with zeros would take a third of the time
  // that a short line takes to be read.
  char mStrMsg[kChatTextCapacity];

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mStrUser", &PacketChatMsg::mStrUser},
                      PacketField{"mStrMsg", &PacketChatMsg::mStrMsg}};
  }
};

// The users in the lobby: the first mUintCount names. A count from the wire can exceed the list: clamp it before you
// index.
struct PacketChatUsers final : PacketOf<PacketChatUsers, 401, "PacketChatUsers"> {
  std::uint16_t mUintCount = 0;
  NameList mStrUsers = {};

  // Appends a name, cut to its capacity; a full list takes no more.
  void Add(const char* name) {
    if (mUintCount < kUserListCapacity) CopyText(mStrUsers[mUintCount++], name);
  }

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintCount", &PacketChatUsers::mUintCount},
                      PacketField{"mStrUsers", &PacketChatUsers::mStrUsers}};
  }
};

struct PacketEnterChatRequest final : PacketOf<PacketEnterChatRequest, 402, "PacketEnterChatRequest"> {};
struct PacketEnterChatAccept final : PacketOf<PacketEnterChatAccept, 403, "PacketEnterChatAccept"> {};

struct PacketEnterChatDeny final : PacketOf<PacketEnterChatDeny, 404, "PacketEnterChatDeny">, DenialReason {
  PacketEnterChatDeny() = default;
  explicit PacketEnterChatDeny(const char* reason) : DenialReason(reason) {}

  using DenialReason::Fields;
};

// The number of users in the world.
struct PacketUserInGame final : PacketOf<PacketUserInGame, 406, "PacketUserInGame"> {
  PacketUserInGame() = default;
  explicit PacketUserInGame(std::uint32_t count) : mUintCount(count) {}

  std::uint32_t mUintCount = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintCount", &PacketUserInGame::mUintCount}}; }
};

}  // namespace tolva
