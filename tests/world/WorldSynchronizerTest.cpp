#include <algorithm>
#include <filesystem>
#include <numeric>

#include "protocol/WorldPoint.h"
#include "support/SyncWorld.h"

namespace tolva::test {
namespace {

constexpr FieldPosition kHome = {{10, 20, 4, 4, 3}, 12, 12};

struct WorldSynchronizerTest : ::testing::Test, SyncWorld {
  WorldSynchronizerTest() {
    std::filesystem::create_directory("area");
    EXPECT_TRUE(Place(kHome));
  }
  ClientCharacter* Add(const FieldPosition& position) {
    sync.AddChar(PacketAddChar(position));
    return ClientCharacter::On(*map.GetField(position));
  }
  void Move(const FieldPosition& position, Direction direction) { sync.MoveChar(PacketMove(position, direction)); }
  // The places in the map of the areas that were requested, as row * kMapEdge + column.
  std::vector<std::int64_t> AskedFor() {
    std::vector<std::int64_t> places;
    for (const auto& packet : toServer) {
      const auto* request = PacketCast<PacketAreaVersion>(packet.get());
      const auto [row, column] = CountAreasAhead(map.GetAreaAt(0, 0)->GetPosition(), *request);
      places.push_back(row * kMapEdge + column);
    }
    return places;
  }
};

TEST_F(WorldSynchronizerTest, RequestsEveryAreaAndCountsTheAnswers) {
  Area cached;
  cached.SetPosition({10, 20, 3, 5, 3});
  cached.SetVersion(77);
  ASSERT_TRUE(cached.Save("area/"));
  ASSERT_TRUE(Place(kHome));
  EXPECT_EQ(player.GetField(), map.GetCenterArea()->GetField(12, 12));
  const auto asked = AskedFor();
  ASSERT_EQ(asked.size(), kMapAreas);
  for (int i = 0; i < kMapAreas; ++i) {
    EXPECT_EQ(asked[i], i);
    const auto* request = PacketCast<PacketAreaVersion>(toServer[i].get());
    EXPECT_EQ(request->mByVersion, i == 2 * kMapEdge + 4 ? 77 : 0) << "the version in the cache";
    EXPECT_EQ(request->mByLevel, 3);
  }
  for (int answer = 0; answer < 52; ++answer) sync.CountAreaAnswer();
  ASSERT_EQ(toDisplay.size(), 50u) << "unexpected answers are not shown";
  for (int i = 0; i < 50; ++i) {
    const auto* status = PacketCast<PacketInternStatus>(toDisplay[i].get());
    EXPECT_EQ(status->mUintValue, i);
    EXPECT_EQ(status->mUintMaxValue, 49);
  }
  ASSERT_TRUE(Place(kHome));
  for (int answer = 0; answer < 20; ++answer) sync.CountAreaAnswer();
  ASSERT_TRUE(Place({{70, 80, 0, 7, 3}, 0, 0}));
  for (const auto& packet : toServer) {
    EXPECT_EQ(PacketCast<PacketAreaVersion>(packet.get())->mByVersion, 0) << "not a version from the previous place";
  }
  sync.CountAreaAnswer();
  EXPECT_EQ(PacketCast<PacketInternStatus>(toDisplay.back().get())->mUintValue, 1) << "counts for this placement";
}

TEST_F(WorldSynchronizerTest, MakesQueuedRequestsForWhatIsStillOnTheMap) {
  delaysRequests = true;
  ASSERT_TRUE(Place({kHome, 5, 23}));
  ASSERT_TRUE(Place({kHome, 5, 23}));
  EXPECT_EQ(waiting.size(), kMapAreas) << "those of the previous placement are dropped";
  Move({kHome, 5, 23}, Direction::NorthEast);
  PacketAreaVolu volu({map.GetCenterArea()->GetPosition(), 9});
  volu.mUintVolu.fill(0);
  sync.UpdateAreaVolu(volu);
  MakeRequests();
  EXPECT_EQ(toServer.size(), kMapAreas) << "seven areas have left the map, seven have come in";
  for (const auto& packet : toServer) {
    const auto* request = PacketCast<PacketAreaVersion>(packet.get());
    const Area* area = map.GetArea(*request);
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(request->mByVersion, area == map.GetCenterArea() ? 9 : 0) << "the version that came in the meantime";
  }
}

TEST_F(WorldSynchronizerTest, IgnoresAndLogsImpossiblePackets) {
  const ClientCharacter* first = Add({kHome, 3, 3});
  EXPECT_EQ(Add({kHome, 3, 3}), first);
  EXPECT_EQ(map.GetCharacterCount(), 1u);
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(Place({kHome, 24, 0}));
  EXPECT_EQ(player.GetField(), map.GetField(kHome));
  sync.RemoveChar(PacketRemoveChar({{99, 99, 0, 0, 3}, 0, 0}));
  const std::string text = ReadFile("log.clf");
  EXPECT_EQ(std::ranges::count(text, '\n'), 2) << text;
  EXPECT_NE(text.find("001                       The server placed the player on a field that does not exist\n"),
            std::string::npos);
  EXPECT_NE(text.find("001                       Could not remove char\n"), std::string::npos);
}

TEST_F(WorldSynchronizerTest, StoresWhatTheServerSendsInMapAndCache) {
  PacketAreaVolu volu({kHome, 4});
  volu.mUintVolu.fill(6600);
  sync.UpdateAreaVolu(volu);
  PacketAreaGround ground({kHome, 5});
  std::iota(ground.mUintGround.begin(), ground.mUintGround.end(), 0u);
  ground.mBySmoothness.fill(0xF7);
  sync.UpdateAreaGround(ground);
  const std::pair<const char*, AreaPosition> elsewhere[] = {
      {"other level", {10, 20, 4, 4, 2}}, {"other area", {11, 20, 4, 4, 3}}, {"no area", {9, 20, 12, 4, 3}}};
  for (const auto& [name, position] : elsewhere) {
    static_cast<AreaHeader&>(ground) = {position, 99};
    sync.UpdateAreaGround(ground);
    EXPECT_EQ(map.GetCenterArea()->GetVersion(), 5) << name;
  }
  Area cached;
  cached.SetPosition(kHome);
  ASSERT_TRUE(cached.Load("area/"));
  EXPECT_EQ(cached.GetVersion(), 5);
  EXPECT_EQ(cached.GetField(1, 1)->GetGroundId(), 25u);
  EXPECT_EQ(cached.GetField(23, 23)->GetVoluId(), 6600u);
  EXPECT_EQ(cached.GetField(23, 23)->GetSmoothness(), 7);
}

TEST_F(WorldSynchronizerTest, FollowsThePlayerIntoEveryNeighborArea) {
  constexpr int kNone = -1;
  const struct {
    Direction direction;
    std::uint8_t fx, fy;  // from where the player leaves the area
    int row, column;      // that come into view
  } cases[] = {
      {Direction::North, 0, 23, 0, 6}, {Direction::NorthEast, 5, 23, kNone, 6},
      {Direction::East, 23, 23, 6, 6}, {Direction::SouthEast, 23, 5, 6, kNone},
      {Direction::South, 23, 0, 6, 0}, {Direction::SouthWest, 5, 0, kNone, 0},
      {Direction::West, 0, 0, 0, 0},   {Direction::NorthWest, 0, 5, 0, kNone},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(static_cast<std::uint32_t>(test.direction));
    const FieldPosition start{kHome, test.fx, test.fy};
    Place(start);
    toServer.clear();
    toDisplay.clear();
    Add({kHome, 23, 12});
    Move({kHome, 23, 12}, Direction::SouthEast);
    EXPECT_TRUE(toServer.empty()) << "somebody else crossed the border";
    const Area* target = map.GetField(start)->GetNeighbor(test.direction)->GetArea();
    Move(start, test.direction);
    EXPECT_EQ(map.GetCenterArea(), target);
    EXPECT_EQ(player.GetField()->GetArea(), target);
    EXPECT_TRUE(player.IsMoving());
    std::vector<std::int64_t> expected;
    for (int i = 0; i < kMapEdge; ++i) {
      if (test.row != kNone) expected.push_back(test.row * kMapEdge + i);
      if (test.column != kNone) expected.push_back(i * kMapEdge + test.column);
    }
    EXPECT_EQ(AskedFor(), expected);
    EXPECT_TRUE(toDisplay.empty()) << "no progress for these";
  }
}

TEST_F(WorldSynchronizerTest, IgnoresStepsOntoSomebodyAndOnAnotherLevel) {
  const FieldPosition beside = {kHome, 12, 13};
  const ClientCharacter* other = Add(beside);
  Move(kHome, Direction::NorthEast);
  Move(beside, Direction::SouthWest);
  Move({{10, 20, 4, 4, 0}, 12, 13}, Direction::North);
  EXPECT_EQ(other->GetField(), map.GetField(beside));
  EXPECT_EQ(player.GetField(), map.GetField(kHome));
  EXPECT_FALSE(other->IsMoving());
  EXPECT_FALSE(player.IsMoving());
}

}  // namespace
}  // namespace tolva::test
