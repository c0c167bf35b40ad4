#pragma once

#include <array>
#include <cstdint>

namespace tolva {

// The eight ways to step from field to field, as they stand in packets and index neighbors. Clockwise from the top of
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
constexpr std::array<Direction, kDirectionCount> kDirections = {
    Direction::North, Direction::NorthEast, Direction::East, Direction::SouthEast,
    Direction::South, Direction::SouthWest, Direction::West, Direction::NorthWest};

// The directions to the four fields that share an edge with a field.
constexpr std::array<Direction, 4> kEdgeDirections = {Direction::SouthEast, Direction::NorthEast, Direction::NorthWest,
                                                      Direction::SouthWest};

constexpr bool IsDirection(Direction direction) { return static_cast<std::uint32_t>(direction) < kDirectionCount; }

// `direction` is one of the eight.
constexpr Direction Opposite(Direction direction) {
  return kDirections[(static_cast<std::uint32_t>(direction) + kDirectionCount / 2) % kDirectionCount];
}

// One step, in fields or in areas. The screen shows the world with x growing to the south-east and y to the north-east.
struct Step {
  int x = 0;
  int y = 0;

  constexpr bool operator==(const Step&) const = default;
};

// The step in each direction.
constexpr std::array<Step, kDirectionCount> kSteps = {
    {{-1, 1}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}, {-1, -1}, {-1, 0}}};

// `direction` is one of the eight.
constexpr Step StepIn(Direction direction) { return kSteps[static_cast<std::uint32_t>(direction)]; }

// The direction of a step of -1, 0 or 1 along each axis; None for a step that leads nowhere or too far.
constexpr Direction DirectionOf(Step step) {
  for (const Direction direction : kDirections) {
    if (StepIn(direction) == step) return direction;
  }
  return Direction::None;
}

}  // namespace tolva
