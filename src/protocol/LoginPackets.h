#pragma once

#include "protocol/DenialReason.h"
#include "protocol/Packet.h"
#include "protocol/VersionNumbers.h"

namespace tolva {

struct PacketConnectionRequest final : PacketOf<PacketConnectionRequest, 100, "PacketConnectionRequest"> {};

// Asks to log in. The login screen gives name and password, the controller adds the client's version.
struct PacketLoginRequest final : PacketOf<PacketLoginRequest, 200, "PacketLoginRequest">, VersionNumbers {
  PacketLoginRequest() = default;
  PacketLoginRequest(const char* name, const char* password) {
    CopyText(mStrLogin, name);
    CopyText(mStrPass, password);
  }
  PacketLoginRequest(const char* name, const char* password, const VersionNumbers& version) : VersionNumbers(version) {
    CopyText(mStrLogin, name);
    CopyText(mStrPass, password);
  }

  char mStrLogin[kUserNameCapacity] = "";
  char mStrPass[kUserNameCapacity] = "";
  std::uint32_t mUintHost = 0;
  std::uint16_t mUintPort = 0;
  Mailbox* mObjClientMailbox = nullptr;

  static constexpr auto Fields() {
    return std::tuple_cat(std::tuple{PacketField{"mStrLogin", &PacketLoginRequest::mStrLogin},
                                     PacketField{"mStrPass", &PacketLoginRequest::mStrPass}},
                          VersionNumbers::Fields(),
                          std::tuple{PacketField{"mUintHost", &PacketLoginRequest::mUintHost},
                                     PacketField{"mUintPort", &PacketLoginRequest::mUintPort},
                                     PacketField{"mObjClientMailbox", &PacketLoginRequest::mObjClientMailbox}});
  }
};

struct PacketLoginAccept final : PacketOf<PacketLoginAccept, 201, "PacketLoginAccept"> {};

struct PacketLoginDeny final : PacketOf<PacketLoginDeny, 202, "PacketLoginDeny">, DenialReason {
  PacketLoginDeny() = default;
  explicit PacketLoginDeny(const char* reason) : DenialReason(reason) {}

  using DenialReason::Fields;
};

struct PacketLogout final : PacketOf<PacketLogout, 300, "PacketLogout"> {
  Mailbox* mObjClientMailbox = nullptr;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mObjClientMailbox", &PacketLogout::mObjClientMailbox}};
  }
};

// The player wants to quit, or the server ends the client.
struct PacketQuit final : PacketOf<PacketQuit, 500, "PacketQuit"> {};

// To the server: asks for its version, with all numbers 0. From the server: its version.
struct PacketServerInfo final : PacketOf<PacketServerInfo, 600, "PacketServerInfo">, VersionNumbers {
  PacketServerInfo() = default;
  explicit PacketServerInfo(const VersionNumbers& version) : VersionNumbers(version) {}

  using VersionNumbers::Fields;
};

struct PacketClientInfo final : PacketOf<PacketClientInfo, 601, "PacketClientInfo">, VersionNumbers {
  using VersionNumbers::Fields;
};

struct PacketKick final : PacketOf<PacketKick, 650, "PacketKick"> {
  char mStrWho[kKickedNameCapacity] = "";

  static constexpr auto Fields() { return std::tuple{PacketField{"mStrWho", &PacketKick::mStrWho}}; }
};

}  // namespace tolva
