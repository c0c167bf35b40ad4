#include "server/terrain/World.h"

#include <list>
#include <set>
#include <unordered_map>
#include <utility>

#include "protocol/FieldPosition.h"
#include "server/terrain/AreaPainter.h"
#include "server/terrain/ArrivalIsland.h"

namespace tolva {
namespace {

// What some dozens of players see at once; 12 MB.
constexpr std::size_t kMostAreas = 2048;

struct AreaKey {
  std::uint64_t regions;
  std::uint16_t areas;
  bool operator==(const AreaKey&) const = default;
};

struct AreaKeyHash {
  std::size_t operator()(const AreaKey& key) const { return MixBits(key.regions ^ (std::uint64_t{key.areas} << 24)); }
};

AreaKey KeyOf(const AreaPosition& area) {
  return {std::uint64_t{area.mUintRx} << 32 | area.mUintRy, static_cast<std::uint16_t>(area.mByAx << 8 | area.mByAy)};
}

}  // namespace

struct World::Impl {
  using Entry = std::pair<AreaKey, std::shared_ptr<const AreaContent>>;

  explicit Impl(std::uint64_t seed) : painter(seed) {}

  AreaPainter painter;
  // The last one asked for comes first.
  std::list<Entry> recent;
  std::unordered_map<AreaKey, std::list<Entry>::iterator, AreaKeyHash> known;
  std::vector<FieldPosition> arrivals;
};

World::World(std::uint64_t seed) : mImpl(std::make_unique<Impl>(seed)) {
  // Around the square, and nowhere that one could not walk away from.
  constexpr std::size_t kArrivals = 160;
  constexpr PlanOffset kEdges[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  constexpr PlanOffset kFirst = {0, -1};
  std::vector<PlanOffset> found = {kFirst};
  std::set<std::pair<int, int>> seen = {{kFirst.x, kFirst.y}};
  for (std::size_t next = 0; next < found.size() && found.size() < kArrivals; ++next) {
    for (const PlanOffset& edge : kEdges) {
      const PlanOffset beside = {found[next].x + edge.x, found[next].y + edge.y};
      const FieldPosition field = ToPosition(Moved(kHome, beside.x, beside.y));
      if (seen.emplace(beside.x, beside.y).second && IsWalkable(field)) found.push_back(beside);
    }
  }
  for (const PlanOffset& offset : found) {
    mImpl->arrivals.push_back(ToPosition(Moved(kHome, offset.x, offset.y)));
  }
}

World::~World() = default;

std::shared_ptr<const AreaContent> World::GetArea(const AreaPosition& area) {
  const AreaKey key = KeyOf(area);
  if (const auto known = mImpl->known.find(key); known != mImpl->known.end()) {
    mImpl->recent.splice(mImpl->recent.begin(), mImpl->recent, known->second);
    return known->second->second;
  }
  mImpl->recent.emplace_front(key, mImpl->painter.Paint(area));
  mImpl->known[key] = mImpl->recent.begin();
  if (mImpl->recent.size() > kMostAreas) {
    mImpl->known.erase(mImpl->recent.back().first);
    mImpl->recent.pop_back();
  }
  return mImpl->recent.front().second;
}

bool World::IsWalkable(const FieldPosition& field) {
  return IsInRange(field) && !GetArea(field)->blocked[AreaContent::IndexOf(field.mByFx, field.mByFy)];
}

const std::vector<FieldPosition>& World::GetArrivals() const { return mImpl->arrivals; }

}  // namespace tolva
