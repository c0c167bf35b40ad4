#pragma once

#include "foundation/Text.h"
#include "protocol/Packet.h"

struct _TCPsocket;  // NOLINT(bugprone-reserved-identifier): the name is SDL_net's; only the network layer looks inside

namespace tolva {

class Repository;

// Packets that threads send each other about themselves and the connection. Only ping and pong are for the peer, but a
// peer can send any of them: never act on a pointer, a handle or a command that came from the wire.

constexpr PacketCode kLastInternCode = 20;

// Asks the socket control to connect. The port is in host byte order.
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

// Asks the socket control to listen. The port is in host byte order.
struct PacketInternListen final : PacketOf<PacketInternListen, 2, "PacketInternListen"> {
  PacketInternListen() = default;
  explicit PacketInternListen(std::uint16_t port) : mUintPort(port) {}

  std::uint16_t mUintPort = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintPort", &PacketInternListen::mUintPort}}; }
};

// An accepted connection. Host and port of the peer are in network byte order, as in SDL_net. Whoever owns the packet
// owns the socket, too, and must close it or take it out.
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

// Keeps the connection alive and measures it; carries the sender's tick in milliseconds.
struct PacketInternPing final : PacketOf<PacketInternPing, 8, "PacketInternPing"> {
  PacketInternPing() = default;
  explicit PacketInternPing(std::uint32_t tick) : mUintTick(tick) {}

  std::uint32_t mUintTick = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintTick", &PacketInternPing::mUintTick}}; }
};

// Answers a ping with the ping's tick. The socket control replaces it by the round-trip time in milliseconds before it
// passes the packet on.
struct PacketInternPong final : PacketOf<PacketInternPong, 9, "PacketInternPong"> {
  PacketInternPong() = default;
  explicit PacketInternPong(std::uint32_t tick) : mUintTick(tick) {}

  std::uint32_t mUintTick = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintTick", &PacketInternPong::mUintTick}}; }
};

// The connection stands. Host and port of the peer are in network byte order, as in SDL_net.
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

// Gives a thread the mailbox that it reports to, which it does not own.
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

// Lends the display the shared world, which the controller owns.
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
