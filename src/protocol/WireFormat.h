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

}  // namespace tolva
