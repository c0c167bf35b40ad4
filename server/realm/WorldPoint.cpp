#include "server/realm/WorldPoint.h"

#include <algorithm>

#include "protocol/PacketField.h"
#include "protocol/Steps.h"

namespace tolva {
namespace {

constexpr std::uint64_t kAreasAcross = kWorldEdge / kAreaEdge;

std::uint64_t Wrap(std::uint64_t coordinate, std::int64_t by) {
  const auto moved = static_cast<std::int64_t>(coordinate) + by;
  const auto edge = static_cast<std::int64_t>(kWorldEdge);
  return static_cast<std::uint64_t>(moved < 0 ? moved + edge : moved % edge);
}

// The shorter way round.
std::uint64_t Gap(std::uint64_t from, std::uint64_t to, std::uint64_t edge) {
  const std::uint64_t ahead = to >= from ? to - from : edge - from + to;
  return std::min(ahead, edge - ahead);
}

std::uint64_t Count(std::uint32_t region, std::uint8_t area, std::uint8_t field) {
  return (std::uint64_t{region} * kRegionEdge + area) * kAreaEdge + field;
}

}  // namespace

WorldPoint ToPoint(const FieldPosition& position) {
  return {Count(position.mUintRx, position.mByAx, position.mByFx),
          Count(position.mUintRy, position.mByAy, position.mByFy)};
}

FieldPosition ToPosition(WorldPoint point) {
  const auto region = [](std::uint64_t fields) { return static_cast<std::uint32_t>(fields / kAreaEdge / kRegionEdge); };
  const auto area = [](std::uint64_t fields) { return static_cast<std::uint8_t>(fields / kAreaEdge % kRegionEdge); };
  const auto field = [](std::uint64_t fields) { return static_cast<std::uint8_t>(fields % kAreaEdge); };
  return {
      {region(point.x), region(point.y), area(point.x), area(point.y), kGroundLevel}, field(point.x), field(point.y)};
}

WorldPoint Moved(WorldPoint point, std::int64_t x, std::int64_t y) { return {Wrap(point.x, x), Wrap(point.y, y)}; }

WorldPoint Next(WorldPoint point, Direction direction) {
  const Step step = StepIn(direction);
  return Moved(point, step.x, step.y);
}

std::uint64_t Distance(WorldPoint from, WorldPoint to) {
  return std::max(Gap(from.x, to.x, kWorldEdge), Gap(from.y, to.y, kWorldEdge));
}

std::uint64_t DistanceInAreas(WorldPoint from, WorldPoint to) {
  return std::max(Gap(from.x / kAreaEdge, to.x / kAreaEdge, kAreasAcross),
                  Gap(from.y / kAreaEdge, to.y / kAreaEdge, kAreasAcross));
}

Direction DirectionTo(WorldPoint from, WorldPoint to) {
  for (std::uint32_t d = 0; d < kDirectionCount; ++d)
    if (Next(from, static_cast<Direction>(d)) == to) return static_cast<Direction>(d);
  return Direction::None;
}

}  // namespace tolva
