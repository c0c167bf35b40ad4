#include <set>

#include "protocol/PacketDispatch.h"
#include "server/terrain/ArrivalIsland.h"
#include "server/terrain/Chance.h"
#include "server/terrain/World.h"
#include "support/SyncWorld.h"

namespace tolva::test {
namespace {

// The ground in a corner of the field, by the corner's bit; soft grounds count as grass and pavements as one. None for
// an id without a picture.
std::optional<Ground> CornerOf(const Field& field, std::uint32_t bit) {
  using enum Ground;
  constexpr Ground kKinds[] = {Deep, Shallow, Sand, Grass, Grass, Grass, Path, Rock, Snow, Path, Grass, Grass};
  constexpr Ground kPairs[][2] = {{Shallow, Deep}, {Sand, Shallow}, {Grass, Sand}, {Grass, Path},
                                  {DryGrass},      {Grass, Rock},   {Snow, Rock},  {Grass, Path}};
  constexpr std::uint32_t kFirstPair = 32;
  const std::uint32_t part = field.GetGroundId() % 16;
  const std::uint32_t kind = field.GetGroundId() / 16 - static_cast<std::uint32_t>(Deep) / 16;
  if (kind < std::size(kKinds) && part < kGroundVariants) return kKinds[kind];
  if (kind < kFirstPair || kind - kFirstPair >= std::size(kPairs) || part == 0 || part == 15) return {};
  return kPairs[kind - kFirstPair][(part & bit) == 0];
}

bool IsPiece(const Field& field) { return field.GetGroundId() >= static_cast<std::uint32_t>(Transition::ShallowDeep); }

void ExpectToFit(const Field& field, const Field& beside, Direction direction) {
  constexpr std::uint32_t kNorth = 1, kEast = 2, kSouth = 4, kWest = 8;
  // The corners of both fields at the two ends of their common edge.
  const bool isNorthEast = direction == Direction::NorthEast;
  constexpr std::uint32_t kEnds[2][2][2] = {{{kEast, kNorth}, {kSouth, kWest}}, {{kNorth, kWest}, {kEast, kSouth}}};
  for (const auto& [own, others] : kEnds[isNorthEast]) {
    EXPECT_TRUE(CornerOf(field, own).has_value()) << "no such ground: " << field.GetGroundId();
    EXPECT_EQ(CornerOf(field, own), CornerOf(beside, others));
  }
  if (IsPiece(field) || IsPiece(beside)) {
    EXPECT_EQ(field.GetSmoothness() + beside.GetSmoothness(), 0) << "a transition is blended";
  }
  if (!isNorthEast) {
    const bool isTavern = field.GetVoluId() == kTavern.PictureOf(2, 0);
    EXPECT_EQ(isTavern, beside.GetVoluId() == kTavern.PictureOf(3, 0)) << "a tavern in parts";
  }
}

// A client whose map is filled with the world's answers. Expects that everything fits over the borders of the areas.
struct Traveler : SyncWorld {
  Traveler(std::uint64_t seed, const FieldPosition& start) : world(seed) {
    EXPECT_TRUE(Place(start));
    Answer();
    for (const Field* field : FieldsOf(map)) {
      for (const Direction direction : {Direction::NorthEast, Direction::SouthEast}) {
        if (const Field* beside = field->GetNeighbor(direction)) ExpectToFit(*field, *beside, direction);
      }
    }
  }
  void Answer() {
    for (const auto& packet : std::exchange(toServer, {})) {
      Dispatch(*packet, [this](const PacketAreaVersion& request) { Send(request); });
    }
  }
  void Send(const AreaHeader& request) {
    const auto area = world.GetArea(request);
    EXPECT_NE(area->version, 0);
    PacketAreaGround ground(request);
    ground.mUintGround = area->ground;
    ground.mBySmoothness = area->smoothness;
    sync.UpdateAreaGround(ground);
    PacketAreaVolu volu(AreaHeader{request, area->version});
    volu.mUintVolu = area->volu;
    sync.UpdateAreaVolu(volu);
  }
  World world;
};

TEST(TerrainTest, PlayersCanWalkFromTheSquareToEveryPlaceOfTheIsland) {
  struct {
    const char* name;
    PlanOffset offset;
  } constexpr kPlaces[] = {{"hamlet", {kFarHamlet.x + 3, kFarHamlet.y}},
                           {"glade", kGlade},
                           {"summit", kSummit},
                           {"farm", kFarm},
                           {"first pier", kVillagePierEnds[0]},
                           {"second pier", kVillagePierEnds[1]},
                           {"third pier", kVillagePierEnds[2]}};
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    Traveler guest(seed, ToPosition(kHome));
    const auto at = [&](PlanOffset by) { return guest.map.GetField(ToPosition(Moved(kHome, by.x, by.y))); };
    std::vector<const Field*> open = {at({0, -1})};
    std::set<const Field*> reached(open.begin(), open.end());
    for (std::size_t i = 0; i < open.size(); ++i) {
      for (const Direction direction : kEdgeDirections) {
        const Field* beside = open[i]->GetNeighbor(direction);
        if (beside == nullptr || !guest.world.IsWalkable(PositionOf(*beside))) continue;
        if (reached.insert(beside).second) open.push_back(beside);
      }
    }
    EXPECT_GT(reached.size(), 10000U) << "seed " << seed;
    for (const auto& [name, offset] : kPlaces) EXPECT_TRUE(reached.contains(at(offset))) << name << ", seed " << seed;
  }
}

// Everything that a player sees on a field, and where it is.
auto LookOf(const Field* field) {
  return std::tuple(ToPoint(PositionOf(*field)), field->GetGroundId(), field->GetSmoothness(), field->GetVoluId());
}

TEST(TerrainTest, MapsAreTheSameWhateverWayThePlayerCame) {
  Traveler walker(1, ToPosition({0, kHome.y}));
  for (int step = 0; step < 10000; ++step) {
    const Direction direction = kDirections[HashOf(1, step / 20, 0) % kDirectionCount];
    walker.sync.MoveChar(PacketMove(PositionOf(*walker.player.GetField()), direction));
    walker.Answer();
  }
  const Traveler fresh(1, PositionOf(*walker.player.GetField()));
  EXPECT_TRUE(std::ranges::equal(FieldsOf(walker.map), FieldsOf(fresh.map), {}, LookOf, LookOf));
}

}  // namespace
}  // namespace tolva::test
