#pragma once

#include <cstdint>
#include <tuple>

#include "protocol/Direction.h"
#include "protocol/PacketField.h"
#include "protocol/WorldEdges.h"

namespace tolva {

// An area of the world: region, area within the region (0 to 7) and level.
struct AreaPosition {
  std::uint32_t mUintRx = 0;
  std::uint32_t mUintRy = 0;
  std::uint8_t mByAx = 0;
  std::uint8_t mByAy = 0;
  std::int8_t mByLevel = 0;
};

// An area at one version of its content.
struct AreaHeader : AreaPosition {
  std::uint8_t mByVersion = 0;

  static constexpr auto Fields() {
    return std::tuple{
        PacketField{"mUintRx", &AreaHeader::mUintRx},   PacketField{"mUintRy", &AreaHeader::mUintRy},
        PacketField{"mByAx", &AreaHeader::mByAx},       PacketField{"mByAy", &AreaHeader::mByAy},
        PacketField{"mByLevel", &AreaHeader::mByLevel}, PacketField{"mByVersion", &AreaHeader::mByVersion}};
  }
};

// A field of the world: its area and the field within it (0 to 23). The wire can bring any byte.
struct FieldPosition : AreaPosition {
  std::uint8_t mByFx = 0;
  std::uint8_t mByFy = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintRx", &FieldPosition::mUintRx},  PacketField{"mUintRy", &FieldPosition::mUintRy},
                      PacketField{"mByAx", &FieldPosition::mByAx},      PacketField{"mByAy", &FieldPosition::mByAy},
                      PacketField{"mByFx", &FieldPosition::mByFx},      PacketField{"mByFy", &FieldPosition::mByFy},
                      PacketField{"mByLevel", &FieldPosition::mByLevel}};
  }
};

// Whether both have the same region and area numbers; levels do not count.
constexpr bool IsSameArea(const AreaPosition& one, const AreaPosition& other) {
  return one.mUintRx == other.mUintRx && one.mUintRy == other.mUintRy && one.mByAx == other.mByAx &&
         one.mByAy == other.mByAy;
}

// Whether the numbers name an area, and the field in it; the wire can bring any.
constexpr bool IsInRange(const FieldPosition& position) {
  return position.mByAx < kRegionEdge && position.mByAy < kRegionEdge && position.mByFx < kAreaEdge &&
         position.mByFy < kAreaEdge;
}

// The area one step away, across the borders of regions; region numbers wrap around.
constexpr AreaPosition NextArea(AreaPosition position, Step step) {
  const auto move = [](std::uint32_t& region, std::uint8_t& area, int by) {
    const int moved = area + by;
    const bool crosses = moved < 0 || moved == kRegionEdge;
    if (crosses) region += static_cast<std::uint32_t>(by);
    area = static_cast<std::uint8_t>(crosses ? kRegionEdge - 1 - area : moved);
  };
  move(position.mUintRx, position.mByAx, step.x);
  move(position.mUintRy, position.mByAy, step.y);
  return position;
}

}  // namespace tolva
