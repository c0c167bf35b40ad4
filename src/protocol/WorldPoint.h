#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "protocol/WorldEdges.h"

namespace tolva {

// The level that people walk on.
constexpr std::int8_t kGroundLevel = 0;

// A field of the ground level, counted in fields from the corner of region (0, 0), so that steps and distances are
// plain arithmetic across the borders of areas and regions. Each coordinate is 0 to kWorldEdge - 1, unless a function
// says that it takes others.
struct WorldPoint {
  std::int64_t x = 0;
  std::int64_t y = 0;

  friend constexpr bool operator==(const WorldPoint&, const WorldPoint&) = default;
  // Some order, for containers that need one.
  friend constexpr bool operator<(const WorldPoint& left, const WorldPoint& right) {
    return left.x != right.x ? left.x < right.x : left.y < right.y;
  }
};

// Wraps a coordinate that is out of range by at most one edge of the world: after the last field comes the first.
constexpr std::int64_t WrapCoordinate(std::int64_t coordinate) {
  if (coordinate < 0) return coordinate + kWorldEdge;
  return coordinate < kWorldEdge ? coordinate : coordinate - kWorldEdge;
}

// The point `x` and `y` fields further, both less than kWorldEdge.
constexpr WorldPoint Moved(WorldPoint point, std::int64_t x, std::int64_t y) {
  return {WrapCoordinate(point.x + x), WrapCoordinate(point.y + y)};
}

// The point one step further; `direction` is one of the eight.
constexpr WorldPoint Next(WorldPoint point, Direction direction) {
  const Step step = StepIn(direction);
  return Moved(point, step.x, step.y);
}

// The area's field (0, 0). Area numbers from the wire can be out of range, and the point then is, too.
constexpr WorldPoint FirstFieldOf(const AreaPosition& area) {
  const auto first = [](std::uint32_t region, std::uint8_t inRegion) {
    return (std::int64_t{region} * kRegionEdge + inRegion) * kAreaEdge;
  };
  return {first(area.mUintRx, area.mByAx), first(area.mUintRy, area.mByAy)};
}

// The point of a position whose numbers are in range (IsInRange).
constexpr WorldPoint ToPoint(const FieldPosition& position) {
  const WorldPoint first = FirstFieldOf(position);
  return {first.x + position.mByFx, first.y + position.mByFy};
}

FieldPosition ToPosition(WorldPoint point);

// The number of steps from one point to the other by the shortest way, diagonal steps included.
std::int64_t Distance(WorldPoint from, WorldPoint to);
// The same in areas: 0 in one area, 1 in neighbors.
std::int64_t DistanceInAreas(WorldPoint from, WorldPoint to);
// The direction to a point at distance 1, else None.
Direction DirectionTo(WorldPoint from, WorldPoint to);

// The number of areas from one area to another along each axis, counted upward and around the end of the world.
struct AreasAhead {
  std::int64_t x;
  std::int64_t y;
};
AreasAhead CountAreasAhead(const AreaPosition& from, const AreaPosition& to);

struct WorldPointHash {
  std::size_t operator()(WorldPoint point) const {
    const auto x = static_cast<std::uint64_t>(point.x);
    const auto y = static_cast<std::uint64_t>(point.y);
    return std::hash<std::uint64_t>()(x * 0x9E3779B97F4A7C15U ^ (y + 0x632BE59BD9B4E019U) * 0xD1342543DE82EF95U);
  }
};

}  // namespace tolva
