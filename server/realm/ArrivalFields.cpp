#include "server/realm/ArrivalFields.h"

#include <algorithm>
#include <unordered_set>

namespace tolva {
namespace {

// Fields looked at around somebody's old place: some three steps each way.
constexpr std::size_t kNearby = 49;

// The fields themselves, then those that can be walked to from them, nearest first, until there are `count`.
std::vector<WorldPoint> Spread(Crowd& crowd, std::vector<WorldPoint> fields, std::size_t count) {
  std::unordered_set<WorldPoint, WorldPointHash> known(fields.begin(), fields.end());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    for (std::uint32_t d = 0; d < kDirectionCount && fields.size() < count; ++d) {
      const auto direction = static_cast<Direction>(d);
      const WorldPoint next = Next(fields[i], direction);
      if (crowd.IsWay(fields[i], direction) && known.insert(next).second) fields.push_back(next);
    }
  }
  return fields;
}

std::optional<WorldPoint> FirstFree(const Crowd& crowd, const std::vector<WorldPoint>& fields) {
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](WorldPoint field) { return !crowd.IsTaken(field); });
  if (found == fields.end()) return std::nullopt;
  return *found;
}

}  // namespace

ArrivalFields::ArrivalFields(World& world, Crowd& crowd, std::size_t count)
    : mCrowd(crowd), mSquareSize(world.GetArrivals().size()) {
  for (const FieldPosition& arrival : world.GetArrivals()) mFields.push_back(ToPoint(arrival));
  mFields = Spread(crowd, mFields, std::max(count, mSquareSize));
}

std::optional<WorldPoint> ArrivalFields::FindFree() const { return FirstFree(mCrowd, mFields); }

std::optional<WorldPoint> ArrivalFields::FindFreeBy(WorldPoint place) const {
  return FirstFree(mCrowd, Spread(mCrowd, {place}, kNearby));
}

}  // namespace tolva
