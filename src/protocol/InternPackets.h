#pragma once

#include "foundation/Text.h"
#include "protocol/Packet.h"

struct _TCPsocket;  // NOLINT(bugprone-reserved-identifier): the name is SDL_net's; only the network layer looks inside

namespace tolva {

class Repository;

// Packets of the threads and the network layer themselves. Only ping and pong are meant to travel, but a peer can send
// any of them: nobody acts on the pointers, handles or commands of one that came from the wire.

constexpr PacketCode kLastInternCode = 20;

// Where the socket control shall connect to; the port is a plain number.
struct PacketInternConnect final : PacketOf<PacketInternConnect, 1, "PacketInternConnect"> {
  PacketInternConnect() = default;
  PacketInternConnect(const char* host, std::uint16_t port) : mUintPort(port) { CopyText(mStrHost, host); }

  char mStrHost[kHostCapacity] = "";
  std::uint16_t mUintPort = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mStrHost", &PacketInternConnect::mStrHost},
                      PacketField{"mUintPort", &PacketInternConnect::mUintPort}};
  }
};

// Asks the socket control to listen; the port is a plain number.
struct PacketInternListen final : PacketOf<PacketInternListen, 2, "PacketInternListen"> {
  PacketInternListen() = default;
  explicit PacketInternListen(std::uint16_t port) : mUintPort(port) {}

  std::uint16_t mUintPort = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintPort", &PacketInternListen::mUintPort}}; }
};

// An accepted connection; host and port of the peer in network byte order, as SDL_net holds them. Whoever holds the
// packet owns the socket.
struct PacketInternNewConnection final : PacketOf<PacketInternNewConnection, 3, "PacketInternNewConnection"> {
  PacketInternNewConnection() = default;
  PacketInternNewConnection(_TCPsocket* socket, std::uint32_t host, std::uint16_t port)
      : mSdlSock(socket), mUintHost(host), mUintPort(port) {}

  _TCPsocket* mSdlSock = nullptr;
  std::uint32_t mUintHost = 0;
  std::uint16_t mUintPort = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mSdlSock", &PacketInternNewConnection::mSdlSock},
                      PacketField{"mUintHost", &PacketInternNewConnection::mUintHost},
                      PacketField{"mUintPort", &PacketInternNewConnection::mUintPort}};
  }
};

struct PacketInternDisconnect final : PacketOf<PacketInternDisconnect, 4, "PacketInternDisconnect"> {};
struct PacketInternConnectionLost final : PacketOf<PacketInternConnectionLost, 5, "PacketInternConnectionLost"> {};
struct PacketInternPacketDamaged final : PacketOf<PacketInternPacketDamaged, 6, "PacketInternPacketDamaged"> {};
struct PacketInternTerminate final : PacketOf<PacketInternTerminate, 7, "PacketInternTerminate"> {};

// Keep-alive; the tick is the sender's, in milliseconds.
struct PacketInternPing final : PacketOf<PacketInternPing, 8, "PacketInternPing"> {
  PacketInternPing() = default;
  explicit PacketInternPing(std::uint32_t tick) : mUintTick(tick) {}

  std::uint32_t mUintTick = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintTick", &PacketInternPing::mUintTick}}; }
};

// Answer to a ping with the ping's tick; above the socket control it holds the round-trip time in milliseconds instead.
struct PacketInternPong final : PacketOf<PacketInternPong, 9, "PacketInternPong"> {
  PacketInternPong() = default;
  explicit PacketInternPong(std::uint32_t tick) : mUintTick(tick) {}

  std::uint32_t mUintTick = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintTick", &PacketInternPong::mUintTick}}; }
};

// A socket works; host and port of the peer in network byte order, as SDL_net holds them.
struct PacketInternConnectionInfo final : PacketOf<PacketInternConnectionInfo, 11, "PacketInternConnectionInfo"> {
  PacketInternConnectionInfo() = default;
  PacketInternConnectionInfo(std::uint32_t host, std::uint16_t port) : mUintHost(host), mUintPort(port) {}

  std::uint32_t mUintHost = 0;
  std::uint16_t mUintPort = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintHost", &PacketInternConnectionInfo::mUintHost},
                      PacketField{"mUintPort", &PacketInternConnectionInfo::mUintPort}};
  }
};

// Tells a thread which mailbox to report to; the mailbox stays with its owner.
struct PacketInternCentralMailbox final : PacketOf<PacketInternCentralMailbox, 12, "PacketInternCentralMailbox"> {
  PacketInternCentralMailbox() = default;
  explicit PacketInternCentralMailbox(Mailbox* mailbox) : mObjMailbox(mailbox) {}

  Mailbox* mObjMailbox = nullptr;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mObjMailbox", &PacketInternCentralMailbox::mObjMailbox}};
  }
};

struct PacketInternManagerMailbox final : PacketOf<PacketInternManagerMailbox, 13, "PacketInternManagerMailbox"> {
  PacketInternManagerMailbox() = default;
  explicit PacketInternManagerMailbox(Mailbox* mailbox) : mObjMailbox(mailbox) {}

  Mailbox* mObjMailbox = nullptr;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mObjMailbox", &PacketInternManagerMailbox::mObjMailbox}};
  }
};

// Hands the display the shared world; the repository stays with the controller.
struct PacketInternRepository final : PacketOf<PacketInternRepository, 14, "PacketInternRepository"> {
  PacketInternRepository() = default;
  explicit PacketInternRepository(Repository* repository) : mObjRepository(repository) {}

  Repository* mObjRepository = nullptr;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mObjRepository", &PacketInternRepository::mObjRepository}};
  }
};

struct PacketInternAddUser final : PacketOf<PacketInternAddUser, 15, "PacketInternAddUser"> {
  std::uint32_t mUintUserId = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintUserId", &PacketInternAddUser::mUintUserId}}; }
};

struct PacketInternRemoveUser final : PacketOf<PacketInternRemoveUser, 16, "PacketInternRemoveUser"> {
  std::uint32_t mUintUserId = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintUserId", &PacketInternRemoveUser::mUintUserId}};
  }
};

struct PacketInternResend final : PacketOf<PacketInternResend, 17, "PacketInternResend"> {
  std::uint32_t mUintResendFrom = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintResendFrom", &PacketInternResend::mUintResendFrom}};
  }
};

// Progress of a synchronization of the map: how many areas of how many the server has answered for.
struct PacketInternStatus final : PacketOf<PacketInternStatus, 18, "PacketInternStatus"> {
  PacketInternStatus() = default;
  PacketInternStatus(std::uint16_t value, std::uint16_t maximum) : mUintValue(value), mUintMaxValue(maximum) {}

  std::uint16_t mUintValue = 0;
  std::uint16_t mUintMaxValue = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintValue", &PacketInternStatus::mUintValue},
                      PacketField{"mUintMaxValue", &PacketInternStatus::mUintMaxValue}};
  }
};

}  // namespace tolva
