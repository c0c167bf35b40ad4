#pragma once

#include <cstdint>
#include <memory>

#include "protocol/Packet.h"
#include "protocol/WireFormat.h"

namespace tolva {

// Turns packets into wire records and back. Stateless except for the magic; use it on any thread.
class PacketConverter {
 public:
  // Writes the packet into `record`, which must have kRecordBufferSize bytes, and returns the record's length. Writes
  // only the header when no class has the packet's code or when the packet is of another class. Allocates nothing.
  std::uint32_t WriteBuffer(std::uint8_t* record, const Packet& packet) const;

  // Makes a packet of the record that `bytes` begin with. For bytes that are no valid record, or only a part of one, it
  // makes a PacketInternPacketDamaged and sets `consumed` to 0; for an unknown code a plain Packet, and only the header
  // counts as consumed.
  std::unique_ptr<Packet> ReadBuffer(const std::uint8_t* bytes, std::uint32_t available, std::uint32_t& consumed) const;

 private:
  std::uint32_t mProtocolMagic = kProtocolMagic;
};

}  // namespace tolva
