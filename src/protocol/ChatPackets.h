#pragma once

#include "foundation/Text.h"
#include "protocol/LoginPackets.h"
#include "protocol/Packet.h"

namespace tolva {

constexpr std::size_t kChatTextCapacity = 1024;

// A chat line; the server fills in the sender's name.
struct PacketChatMsg final : PacketOf<PacketChatMsg, 400, "PacketChatMsg"> {
  PacketChatMsg() = default;
  PacketChatMsg(const char* user, const char* message) {
    CopyText(mStrUser, user);
    CopyText(mStrMsg, message);
  }

  char mStrUser[kUserNameCapacity] = "";
  char mStrMsg[kChatTextCapacity] = "";

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mStrUser", &PacketChatMsg::mStrUser},
                      PacketField{"mStrMsg", &PacketChatMsg::mStrMsg}};
  }
};

// The users in the lobby: the first mUintCount names. The count comes from the server and can exceed the list: clamp it
// before indexing.
struct PacketChatUsers final : PacketOf<PacketChatUsers, 401, "PacketChatUsers"> {
  std::uint16_t mUintCount = 0;
  NameList mStrUsers = {};

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintCount", &PacketChatUsers::mUintCount},
                      PacketField{"mStrUsers", &PacketChatUsers::mStrUsers}};
  }
};

struct PacketEnterChatRequest final : PacketOf<PacketEnterChatRequest, 402, "PacketEnterChatRequest"> {};
struct PacketEnterChatAccept final : PacketOf<PacketEnterChatAccept, 403, "PacketEnterChatAccept"> {};

struct PacketEnterChatDeny final : PacketOf<PacketEnterChatDeny, 404, "PacketEnterChatDeny"> {
  char mStrReason[kReasonCapacity] = "";

  static constexpr auto Fields() { return std::tuple{PacketField{"mStrReason", &PacketEnterChatDeny::mStrReason}}; }
};

// How many users are out in the game world.
struct PacketUserInGame final : PacketOf<PacketUserInGame, 406, "PacketUserInGame"> {
  std::uint32_t mUintCount = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintCount", &PacketUserInGame::mUintCount}}; }
};

}  // namespace tolva
