#pragma once

#include <cstdint>
#include <memory>

#include "protocol/Packet.h"

namespace tolva::plain {

// Writes and reads records as tolva::PacketConverter does. Finds a packet's class by comparing with one class after the
// other, and each number of a grid has its own comparison with the record's end.
class PacketConverter {
 public:
  std::uint32_t WriteBuffer(std::uint8_t* record, const Packet& packet) const;
  std::unique_ptr<Packet> ReadBuffer(const std::uint8_t* bytes, std::uint32_t available, std::uint32_t& consumed) const;
};

}  // namespace tolva::plain
