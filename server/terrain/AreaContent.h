#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>

#include "protocol/PacketField.h"

namespace tolva {

// What lies and stands on the fields of one area, field (Fx, Fy) at Fx * kAreaEdge + Fy.
struct AreaContent {
  static constexpr std::size_t IndexOf(std::uint8_t fx, std::uint8_t fy) { return std::size_t{fx} * kAreaEdge + fy; }

  // 1 to 255; made from the rest, so that another content almost surely has another version.
  std::uint8_t version = 0;
  std::array<std::uint32_t, kAreaFields> ground = {};
  std::array<std::uint8_t, kAreaFields> smoothness = {};
  std::array<std::uint32_t, kAreaFields> volu = {};
  // Where nobody can walk: water, trees, walls.
  std::bitset<kAreaFields> blocked;
};

}  // namespace tolva
