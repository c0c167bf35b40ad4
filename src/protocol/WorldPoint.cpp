#include "protocol/WorldPoint.h"

#include <algorithm>

namespace tolva {
namespace {

// Along an edge that wraps around, upward.
std::int64_t Ahead(std::int64_t from, std::int64_t to, std::int64_t edge) { return (to - from % edge + edge) % edge; }

// The shorter way round.
std::int64_t Gap(std::int64_t from, std::int64_t to, std::int64_t edge) {
  const std::int64_t ahead = Ahead(from, to, edge);
  return std::min(ahead, edge - ahead);
}

}  // namespace

FieldPosition ToPosition(WorldPoint point) {
  const auto region = [](std::int64_t fields) { return static_cast<std::uint32_t>(fields / kRegionFields); };
  const auto area = [](std::int64_t fields) { return static_cast<std::uint8_t>(fields / kAreaEdge % kRegionEdge); };
  const auto field = [](std::int64_t fields) { return static_cast<std::uint8_t>(fields % kAreaEdge); };
  return {
      {region(point.x), region(point.y), area(point.x), area(point.y), kGroundLevel}, field(point.x), field(point.y)};
}

std::int64_t Distance(WorldPoint from, WorldPoint to) {
  return std::max(Gap(from.x, to.x, kWorldEdge), Gap(from.y, to.y, kWorldEdge));
}

std::int64_t DistanceInAreas(WorldPoint from, WorldPoint to) {
  return std::max(Gap(from.x / kAreaEdge, to.x / kAreaEdge, kWorldAreas),
                  Gap(from.y / kAreaEdge, to.y / kAreaEdge, kWorldAreas));
}

Direction DirectionTo(WorldPoint from, WorldPoint to) {
  const auto next = std::ranges::find(kDirections, to, [&](Direction direction) { return Next(from, direction); });
  return next == kDirections.end() ? Direction::None : *next;
}

AreasAhead CountAreasAhead(const AreaPosition& from, const AreaPosition& to) {
  const WorldPoint first = FirstFieldOf(from);
  const WorldPoint last = FirstFieldOf(to);
  return {Ahead(first.x / kAreaEdge, last.x / kAreaEdge, kWorldAreas),
          Ahead(first.y / kAreaEdge, last.y / kAreaEdge, kWorldAreas)};
}

}  // namespace tolva
