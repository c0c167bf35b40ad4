#include <set>

#include "server/terrain/Landscape.h"
#include "server/terrain/World.h"
#include "support/SyncWorld.h"

namespace tolva {
namespace {

FieldPosition PositionOf(const Field& field) { return {field.GetArea()->GetPosition(), field.GetFx(), field.GetFy()}; }

// What lies in a corner of the field, soft grounds counting as grass and pavements as one; nothing for no picture.
std::optional<Ground> CornerOf(const Field& field, std::uint32_t bit) {
  using enum Ground;
  constexpr Ground kinds[] = {Deep, Shallow, Sand, Grass, Grass, Grass, Path, Rock, Snow, Path, Grass, Grass};
  constexpr Ground pairs[][2] = {{Shallow, Deep}, {Sand, Shallow}, {Grass, Sand}, {Grass, Path},
                                 {DryGrass},      {Grass, Rock},   {Snow, Rock},  {Grass, Path}};
  const std::uint32_t part = field.GetGroundId() % 16;
  const std::uint32_t kind = field.GetGroundId() / 16 - 112000 / 16;  // Deep is the first
  if (kind < std::size(kinds) && part < kGroundVariants) return kinds[kind];
  if (kind < 32 || kind - 32 >= std::size(pairs) || part == 0 || part == 15) return {};
  return pairs[kind - 32][(part & bit) == 0];
}

void ExpectToFitNeighbors(const Field& field) {
  for (const auto& [edge, own, other] : {std::tuple{1u, std::pair{1, 2}, std::pair{8, 4}}, {3u, {2, 4}, {1, 8}}}) {
    const Field* beside = field.GetNeighbor(Direction{edge});
    if (!beside) continue;
    EXPECT_TRUE(CornerOf(field, own.first) && CornerOf(field, own.first) == CornerOf(*beside, other.first));
    EXPECT_EQ(CornerOf(field, own.second), CornerOf(*beside, other.second));
    EXPECT_TRUE(std::max(field.GetGroundId(), beside->GetGroundId()) < 112512 ||
                field.GetSmoothness() + beside->GetSmoothness() == 0);
    EXPECT_TRUE(edge == 1 || (field.GetVoluId() == kTavern.first + 16) == (beside->GetVoluId() == kTavern.first + 24));
  }
}

// A client whose map is filled with the world's answers, over the borders of which everything fits.
struct Traveller : test::SyncWorld {
  Traveller(std::uint64_t seed, const FieldPosition& start) : world(seed) {
    EXPECT_TRUE(Place(start));
    Answer();
    for (const Field* field : GetFields()) ExpectToFitNeighbors(*field);
  }
  void Answer() {
    for (const auto& packet : std::exchange(toServer, {})) {
      PacketAreaGround ground;
      PacketAreaVolu volu;
      static_cast<AreaHeader&>(volu) = static_cast<AreaHeader&>(ground) = *PacketCast<PacketAreaVersion>(packet.get());
      const auto area = world.GetArea(ground);
      EXPECT_NE(area->version, 0);
      std::tie(ground.mUintGround, ground.mBySmoothness) = std::tie(area->ground, area->smoothness);
      std::tie(volu.mUintVolu, volu.mByVersion) = std::tie(area->volu, area->version);
      sync.UpdateAreaGround(ground);
      sync.UpdateAreaVolu(volu);
    }
  }
  std::vector<const Field*> GetFields() const {
    std::vector<const Field*> fields;
    for (std::uint8_t i = 0; i < kMapEdge * kMapEdge; ++i) {
      for (const Field& field : map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) fields.push_back(&field);
    }
    return fields;
  }
  World world;
};

TEST(TerrainTest, WhoArrivesCanWalkEverywhere) {
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    Traveller guest(seed, ToPosition(kHome));
    const auto at = [&](PlanOffset by) { return guest.map.GetField(ToPosition(Moved(kHome, by.x, by.y))); };
    std::vector<const Field*> open = {at({0, -1})};
    std::set<const Field*> reached(open.begin(), open.end());
    for (std::size_t i = 0; i < open.size(); ++i) {
      for (const std::uint32_t edge : {1, 3, 5, 7}) {
        const Field* beside = open[i]->GetNeighbor(Direction{edge});
        if (beside && guest.world.IsWalkable(PositionOf(*beside)) && reached.insert(beside).second)
          open.push_back(beside);
      }
    }
    std::set<const Field*> places = {at({kFarHamlet.x + 3, kFarHamlet.y}), at(kGlade), at(kSummit), at(kFarm)};
    for (const PlanOffset& pierEnd : kVillagePierEnds) places.insert(at(pierEnd));
    for (const FieldPosition& arrival : guest.world.GetArrivals()) places.insert(guest.map.GetField(arrival));
    EXPECT_TRUE(reached.size() > 10000 && places.size() >= 107) << reached.size() << ", " << places.size();
    EXPECT_TRUE(std::ranges::includes(reached, places)) << seed;
  }
}

TEST(TerrainTest, MapsAreTheSameHoweverOneCame) {
  Traveller walker(1, ToPosition({0, kHome.y}));
  for (int step = 0; step < 10000; ++step) {
    const auto way = static_cast<Direction>(HashOf(1, step / 20, 0) % kDirectionCount);
    walker.sync.MoveChar(PacketMove(PositionOf(*walker.player.GetField()), way));
    walker.Answer();
  }
  const Traveller fresh(1, PositionOf(*walker.player.GetField()));
  const auto looksAround = [](const Field* field) {
    std::vector<std::int64_t> looks;
    for (std::uint32_t d = 0; d < kDirectionCount; ++d) {
      const Field& by = *(field->GetNeighbor(Direction{d}) ? field->GetNeighbor(Direction{d}) : field);
      const auto [x, y] = FirstFieldOf(by.GetArea()->GetPosition());
      looks.insert(looks.end(), {x, y, by.GetFx(), by.GetFy(), by.GetGroundId(), by.GetSmoothness(), by.GetVoluId()});
    }
    return looks;
  };
  EXPECT_TRUE(std::ranges::equal(walker.GetFields(), fresh.GetFields(), {}, looksAround, looksAround));
}

}  // namespace
}  // namespace tolva
