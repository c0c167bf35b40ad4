#include "server/realm/ArrivalFields.h"

#include <algorithm>
#include <span>
#include <unordered_set>

#include "server/terrain/ArrivalIsland.h"

namespace tolva {
namespace {

constexpr std::size_t kSquareFields = 160;
// The fields to try around a given one: some three steps each way.
constexpr std::size_t kNearbyFields = 49;

// `fields`, followed by those that can be reached from them with steps in `directions`, nearest first, until there are
// `count`.
std::vector<WorldPoint> Spread(Crowd& crowd, std::vector<WorldPoint> fields, std::size_t count,
                               std::span<const Direction> directions) {
  std::unordered_set<WorldPoint, WorldPointHash> known(fields.begin(), fields.end());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    for (const Direction direction : directions) {
      if (fields.size() >= count) return fields;
      const WorldPoint next = Next(fields[i], direction);
      if (crowd.IsWay(fields[i], direction) && known.insert(next).second) fields.push_back(next);
    }
  }
  return fields;
}

std::optional<WorldPoint> FindFirstFree(const Crowd& crowd, const std::vector<WorldPoint>& fields) {
  const auto found = std::ranges::find_if(fields, [&](WorldPoint field) { return !crowd.IsTaken(field); });
  return found == fields.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

ArrivalFields::ArrivalFields(Crowd& crowd, std::size_t count) : mCrowd(crowd) {
  // A well stands in the middle of the square.
  const WorldPoint first = Next(kHome, Direction::SouthWest);
  mFields = Spread(crowd, {first}, kSquareFields, kEdgeDirections);
  mSquareSize = mFields.size();
  mFields = Spread(crowd, std::move(mFields), count, kDirections);
}

std::optional<WorldPoint> ArrivalFields::FindFree() const { return FindFirstFree(mCrowd, mFields); }

std::optional<WorldPoint> ArrivalFields::FindFreeNear(WorldPoint point) const {
  return FindFirstFree(mCrowd, Spread(mCrowd, {point}, kNearbyFields, kDirections));
}

}  // namespace tolva
