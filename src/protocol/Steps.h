#pragma once

#include <array>
#include <cstdint>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"

namespace tolva {

constexpr int kRegionEdge = 8;  // areas

// One step, in fields or in areas. The world is drawn with x growing to the south-east and y to the north-east.
struct Step {
  int x;
  int y;

  constexpr bool operator==(const Step&) const = default;
};

constexpr std::array<Step, kDirectionCount> kSteps = {
    {{-1, 1}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}, {-1, -1}, {-1, 0}}};

constexpr Step StepIn(Direction direction) { return kSteps[static_cast<std::uint32_t>(direction)]; }

// The direction of a step of -1, 0 or 1 each way; None for no step at all.
constexpr Direction DirectionOf(Step step) {
  for (std::uint32_t d = 0; d < kDirectionCount; ++d) {
    if (kSteps[d].x == step.x && kSteps[d].y == step.y) return static_cast<Direction>(d);
  }
  return Direction::None;
}

// The area one step away, over the borders of regions; region numbers wrap around.
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

}  // namespace tolva
