#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"

namespace tolva {

// A field of the world's ground level, counted in fields from the corner of region (0, 0), each coordinate below
// kWorldEdge. Distances and steps are plain arithmetic here, whatever borders of areas and regions lie between, and
// the last field's next is the first.
struct WorldPoint {
  std::uint64_t x = 0;
  std::uint64_t y = 0;

  friend bool operator==(const WorldPoint&, const WorldPoint&) = default;
  // Any order, for containers that need one.
  friend bool operator<(const WorldPoint& left, const WorldPoint& right) {
    return left.x != right.x ? left.x < right.x : left.y < right.y;
  }
};

// Fields along the edge of the whole world.
constexpr std::uint64_t kWorldEdge = (std::uint64_t{1} << 32) * 8 * 24;
// The level that people walk on.
constexpr std::int8_t kGroundLevel = 0;

// The point of a position whose numbers are in range.
WorldPoint ToPoint(const FieldPosition& position);
FieldPosition ToPosition(WorldPoint point);
// The point so many fields away, each less than kWorldEdge.
WorldPoint Moved(WorldPoint point, std::int64_t x, std::int64_t y);
WorldPoint Next(WorldPoint point, Direction direction);
// How many steps it takes from one to the other, diagonal ones included.
std::uint64_t Distance(WorldPoint from, WorldPoint to);
// How many areas the areas of the two are apart, diagonally too.
std::uint64_t DistanceInAreas(WorldPoint from, WorldPoint to);
// The direction to a point at distance 1, else None.
Direction DirectionTo(WorldPoint from, WorldPoint to);

struct WorldPointHash {
  std::size_t operator()(WorldPoint point) const {
    return std::hash<std::uint64_t>()(point.x * 0x9E3779B97F4A7C15U ^
                                      (point.y + 0x632BE59BD9B4E019U) * 0xD1342543DE82EF95U);
  }
};

}  // namespace tolva
