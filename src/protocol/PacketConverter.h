#pragma once

#include <cstdint>

#include "protocol/Packet.h"
#include "protocol/WireFormat.h"

namespace tolva {

// Turns packets into wire records and back. Has no state but the magic, so it may be used anywhere.
class PacketConverter {
 public:
  // Writes the whole record of `packet` into `record`, which must have room for kRecordBufferSize bytes, and returns
  // its length. A packet whose code has no class, or another class than its own, is written as a bare header. Allocates
  // nothing.
  std::uint32_t WriteBuffer(std::uint8_t* record, const Packet& packet) const;

  // Reads one record from the start of `bytes`, of which `available` are there, into a new packet that the caller owns.
  // Bytes that are not, or not yet, a whole valid record give a PacketInternPacketDamaged with `consumed` 0; an unknown
  // code gives a plain Packet with only its header consumed.
  Packet* ReadBuffer(const std::uint8_t* bytes, std::uint32_t available, std::uint32_t& consumed) const;

 private:
  std::uint32_t mProtocolMagic = kProtocolMagic;
};

}  // namespace tolva
