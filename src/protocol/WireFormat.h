#pragma once

#include <cstddef>
#include <cstdint>

namespace tolva {

// The stream of records between client and server. A record is a header of three big-endian 32-bit words (magic, packet
// code, total length in bytes), followed without padding by the fields of the packet's class (docs/protocol.md).

constexpr std::uint32_t kProtocolMagic = 0x00007F06;
constexpr std::uint32_t kHeaderSize = 12;

// Room for any record, and the most that a receiver holds of one: the largest valid one has 2920 bytes.
constexpr std::size_t kRecordBufferSize = 16384;

constexpr void StoreBig32(std::uint8_t* to, std::uint32_t value) {
  to[0] = static_cast<std::uint8_t>(value >> 24);
  to[1] = static_cast<std::uint8_t>(value >> 16);
  to[2] = static_cast<std::uint8_t>(value >> 8);
  to[3] = static_cast<std::uint8_t>(value);
}

constexpr std::uint32_t LoadBig32(const std::uint8_t* from) {
  return std::uint32_t{from[0]} << 24 | std::uint32_t{from[1]} << 16 | std::uint32_t{from[2]} << 8 | from[3];
}

}  // namespace tolva
