#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>

#include "protocol/PacketField.h"

namespace tolva {

// What lies and stands on the fields of one area, field (Fx, Fy) at Fx * kAreaEdge + Fy.
struct AreaContent {
  static constexpr std::size_t IndexOf(std::uint8_t fx, std::uint8_t fy) { return std::size_t{fx} * kAreaEdge + fy; }

  // 1 to 255; a hash of the rest, so that different contents almost surely have different versions.
  std::uint8_t version = 0;
  AreaGrid<std::uint32_t> ground = {};
  AreaGrid<std::uint8_t> smoothness = {};
  AreaGrid<std::uint32_t> volu = {};
  // Where nobody can walk: water, trees, walls.
  std::bitset<kAreaFields> blocked;
};

}  // namespace tolva
