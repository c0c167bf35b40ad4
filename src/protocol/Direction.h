#pragma once

#include <cstdint>

namespace tolva {

// The eight ways to step from field to field, as they stand in packets and index neighbours. Clockwise from the top of
// the screen. Other values can arrive from the wire: test with IsDirection before indexing.
enum class Direction : std::uint32_t {
  North = 0,
  NorthEast = 1,
  East = 2,
  SouthEast = 3,
  South = 4,
  SouthWest = 5,
  West = 6,
  NorthWest = 7,
  None = 64
};

constexpr std::uint32_t kDirectionCount = 8;

constexpr bool IsDirection(Direction direction) { return static_cast<std::uint32_t>(direction) < kDirectionCount; }

}  // namespace tolva
