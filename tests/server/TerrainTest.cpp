#include <random>
#include <set>

#include "server/terrain/Landscape.h"
#include "server/terrain/World.h"
#include "world/SyncWorld.h"

namespace tolva {
namespace {

constexpr auto kPieces = static_cast<std::uint32_t>(Transition::ShallowDeep);

// A client whose map is filled with the world's answers.
struct Traveller : test::SyncWorld {
  Traveller(std::uint64_t seed, const FieldPosition& start) : world(seed) {
    EXPECT_TRUE(Place(start));
    Answer();
  }
  void Answer() {
    for (const auto& packet : std::exchange(toServer, {})) {
      const AreaHeader& asked = *PacketCast<PacketAreaVersion>(packet.get());
      const auto area = world.GetArea(asked);
      PacketAreaGround ground;
      PacketAreaVolu volu;
      static_cast<AreaHeader&>(ground) = static_cast<AreaHeader&>(volu) = {asked, area->version};
      std::tie(ground.mUintGround, ground.mBySmoothness) = std::tie(area->ground, area->smoothness);
      volu.mUintVolu = area->volu;
      sync.UpdateAreaGround(ground);
      sync.UpdateAreaVolu(volu);
    }
  }
  static FieldPosition PositionOf(const Field& field) {
    return {field.GetArea()->GetPosition(), field.GetFx(), field.GetFy()};
  }
  template <typename Check>
  void ForEachField(Check&& check) {
    for (std::uint8_t i = 0; i < kMapEdge * kMapEdge; ++i) {
      for (const Field& field : map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) check(field);
    }
  }
  World world;
};

// What lies in a corner of the field, soft grounds counting as grass and pavements as one; nothing for no picture.
std::optional<Ground> CornerOf(const Field& field, std::uint32_t bit) {
  using enum Ground;
  constexpr Ground kinds[] = {Deep, Shallow, Sand, Grass, Grass, Grass, Path, Rock, Snow, Path, Grass, Grass};
  constexpr Ground pairs[][2] = {{Shallow, Deep}, {Sand, Shallow}, {Grass, Sand}, {Grass, Path},
                                 {DryGrass},      {Grass, Rock},   {Snow, Rock},  {Grass, Path}};
  const std::uint32_t part = field.GetGroundId() % 16;
  const std::uint32_t kind = (field.GetGroundId() - static_cast<std::uint32_t>(Deep)) / 16;
  const std::uint32_t pair = (field.GetGroundId() - kPieces) / 16;
  if (kind < std::size(kinds) && part < kGroundVariants) return kinds[kind];
  if (pair >= std::size(pairs) || part == 0 || part == 15) return {};
  return pairs[pair][(part & bit) == 0];
}

TEST(TerrainTest, FieldsFitOverEveryBorder) {
  for (const PlanePoint middle : {kHome, PlanePoint{0, 0}, PlanePoint{0, kHome.y - 400}}) {
    Traveller(1, FieldAt(middle)).ForEachField([&](const Field& field) {
      // The bits of the two corners that a field shares with a neighbour, its own and the other's.
      for (const auto& [edge, own, other] : {std::tuple{1, std::pair{1, 2}, std::pair{8, 4}}, {3, {2, 4}, {1, 8}}}) {
        const Field* beside = field.GetNeighbor(static_cast<Direction>(edge));
        if (!beside) continue;
        EXPECT_TRUE(CornerOf(field, own.first) && CornerOf(field, own.first) == CornerOf(*beside, other.first));
        EXPECT_EQ(CornerOf(field, own.second), CornerOf(*beside, other.second));
        const bool byPiece = std::max(field.GetGroundId(), beside->GetGroundId()) >= kPieces;
        EXPECT_FALSE(byPiece && field.GetSmoothness() + beside->GetSmoothness() > 0) << "blends with a wrong corner";
      }
    });
  }
}

TEST(TerrainTest, WhoArrivesCanWalkEverywhere) {
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    Traveller traveller(seed, FieldAt(kHome));
    const auto at = [&](int x, int y) { return traveller.map.GetField(FieldAt({kHome.x + x, kHome.y + y})); };
    std::set<const Field*> reached = {at(0, -1)};
    std::set<int> outward;
    for (std::vector<const Field*> open = {at(0, -1)}; !open.empty();) {
      const Field* field = open.back();
      open.pop_back();
      for (const int edge : {1, 3, 5, 7}) {
        const Field* beside = field->GetNeighbor(static_cast<Direction>(edge));
        if (!beside) outward.insert(edge);
        if (!beside || !traveller.world.IsWalkable(Traveller::PositionOf(*beside))) continue;
        if (reached.insert(beside).second) open.push_back(beside);
      }
    }
    EXPECT_TRUE(outward.size() == 4) << "land leads away on every side";
    EXPECT_GT(reached.size(), 10000u);
    std::set<const Field*> places = {at(kFarHamlet.x + 3, kFarHamlet.y)};
    for (const auto& [x, y] : {kGlade, kSummit, kHayMeadow, kFarm}) places.insert(at(x, y));
    for (const auto& [x, y] : kVillagePierEnds) places.insert(at(x, y));
    for (const FieldPosition& arrival : traveller.world.GetArrivals()) places.insert(traveller.map.GetField(arrival));
    EXPECT_GE(places.size(), 108u);
    traveller.ForEachField([&](const Field& field) {
      const bool isHouse = field.GetVoluId() == kTiledHouse.first || field.GetVoluId() == kThatchedHouse.first;
      if (isHouse) places.insert(field.GetNeighbor(Direction::South));  // before the door
    });
    EXPECT_TRUE(std::ranges::includes(reached, places)) << seed;
  }
}

TEST(TerrainTest, MapsAreTheSameHoweverOneCame) {
  Traveller walker(1, FieldAt({0, kHome.y}));
  std::mt19937 chance(1);
  auto way = Direction::North;
  for (int step = 0; step < 10000; ++step) {
    if (chance() % 20 == 0) way = static_cast<Direction>(chance() % kDirectionCount);
    walker.sync.MoveChar(test::At<PacketMove>(Traveller::PositionOf(*walker.player.GetField()), way));
    walker.Answer();
  }
  Traveller fresh(1, Traveller::PositionOf(*walker.player.GetField()));
  const auto looksOf = [](const Field* field) {
    if (!field) return std::vector<std::int64_t>();
    const auto [x, y] = FirstFieldOf(field->GetArea()->GetPosition());
    const std::int64_t content = std::int64_t{field->GetGroundId()} << 32 | field->GetVoluId();
    return std::vector<std::int64_t>{x + field->GetFx(), y + field->GetFy(), content, field->GetSmoothness()};
  };
  std::set<int> versions;
  walker.ForEachField([&](const Field& field) {
    versions.insert(field.GetArea()->GetVersion());
    const Field* same = fresh.map.GetField(Traveller::PositionOf(field));
    for (std::uint32_t d = 0; d < kDirectionCount; ++d) {
      const auto step = static_cast<Direction>(d);
      ASSERT_EQ(looksOf(field.GetNeighbor(step)), looksOf(same->GetNeighbor(step)));
    }
  });
  EXPECT_TRUE(versions.size() > 20 && !versions.contains(0));
}

}  // namespace
}  // namespace tolva
