#pragma once

#include <cstddef>
#include <cstdint>

namespace tolva {

// The records that client and server exchange (docs/protocol.md). Each starts with a header of three big-endian 32-bit
// words: the magic, the packet's code, and the record's whole length in bytes. Then come the fields without padding.

constexpr std::uint32_t kProtocolMagic = 0x00007F06;
constexpr std::uint32_t kHeaderSize = 12;

// Room for any record, and the most bytes that a receiver holds of one. The largest valid record has 2920 bytes.
constexpr std::size_t kRecordBufferSize = 16384;

}  // namespace tolva
