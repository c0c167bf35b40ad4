#include <algorithm>
#include <filesystem>
#include <numeric>

#include "world/SyncWorld.h"

namespace tolva {
namespace {

using test::At;

constexpr FieldPosition kHome = {{10, 20, 4, 4, 3}, 12, 12};

struct WorldSynchronizerTest : testing::Test, test::SyncWorld {
  WorldSynchronizerTest() {
    std::filesystem::create_directory("area");
    EXPECT_TRUE(Place(kHome));
  }
  ClientCharacter* Add(const FieldPosition& position) {
    sync.AddChar(At<PacketAddChar>(position));
    return ClientCharacter::On(*map.GetField(position));
  }
  void Move(const FieldPosition& position, std::uint32_t direction) {
    sync.MoveChar(At<PacketMove>(position, static_cast<Direction>(direction)));
  }
  // The places in the map that the requests ask for, row * 7 + column.
  std::vector<int> AskedFor() {
    std::vector<int> places;
    for (const auto& packet : toServer) {
      const auto* request = PacketCast<PacketAreaVersion>(packet.get());
      for (std::uint8_t i = 0; i < 49; ++i) {
        if (map.GetAreaAt(i / 7, i % 7) == map.GetArea(*request)) places.push_back(i);
      }
    }
    return places;
  }
};

TEST_F(WorldSynchronizerTest, AsksForEveryAreaAndCountsTheAnswers) {
  Area cached;
  cached.SetPosition({10, 20, 3, 5, 3});
  cached.SetVersion(77);
  ASSERT_TRUE(cached.Save("area/"));
  ASSERT_TRUE(Place(kHome));
  EXPECT_EQ(player.GetField(), map.GetCenterArea()->GetField(12, 12));
  const std::vector<int> asked = AskedFor();
  ASSERT_EQ(asked.size(), 49u);
  for (int i = 0; i < 49; ++i) {
    EXPECT_EQ(asked[i], i);
    const auto* request = PacketCast<PacketAreaVersion>(toServer[i].get());
    EXPECT_EQ(request->mByVersion, i == 2 * 7 + 4 ? 77 : 0) << "the version in the cache";
    EXPECT_EQ(request->mByLevel, 3);
  }
  for (int answer = 0; answer < 52; ++answer) sync.CountAreaAnswer();
  ASSERT_EQ(toDisplay.size(), 50u) << "answers beyond the expected show nothing";
  for (int i = 0; i < 50; ++i) {
    const auto* status = PacketCast<PacketInternStatus>(toDisplay[i].get());
    EXPECT_EQ(status->mUintValue, i);
    EXPECT_EQ(status->mUintMaxValue, 49);
  }
  constexpr FieldPosition kElsewhere = {{70, 80, 0, 7, 3}, 0, 0};
  ASSERT_TRUE(Place(kHome));
  for (int answer = 0; answer < 20; ++answer) sync.CountAreaAnswer();
  ASSERT_TRUE(Place(kElsewhere));
  for (const auto& packet : toServer) {
    EXPECT_EQ(PacketCast<PacketAreaVersion>(packet.get())->mByVersion, 0) << "a version of the place before";
  }
  sync.CountAreaAnswer();
  EXPECT_EQ(PacketCast<PacketInternStatus>(toDisplay.back().get())->mUintValue, 1) << "of this placement";
}

TEST_F(WorldSynchronizerTest, AsksWhenTheTurnComesForWhatIsStillOnTheMap) {
  delaysRequests = true;
  ASSERT_TRUE(Place({kHome, 5, 23}));
  ASSERT_TRUE(Place({kHome, 5, 23}));
  EXPECT_EQ(waiting.size(), 49u) << "the placement before has lost its requests";
  Move({kHome, 5, 23}, 1);
  PacketAreaVolu volu;
  static_cast<AreaHeader&>(volu) = {map.GetCenterArea()->GetPosition(), 9};
  sync.UpdateAreaVolu(volu);
  MakeRequests();
  EXPECT_EQ(toServer.size(), 49u) << "seven areas have left the map, seven have come in";
  for (const auto& packet : toServer) {
    const auto* request = PacketCast<PacketAreaVersion>(packet.get());
    const Area* area = map.GetArea(*request);
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(request->mByVersion, area == map.GetCenterArea() ? 9 : 0) << "what came meanwhile counts";
  }
}

TEST_F(WorldSynchronizerTest, LeavesAloneWhatCannotBeAndSaysSo) {
  const ClientCharacter* first = Add({kHome, 3, 3});
  EXPECT_EQ(Add({kHome, 3, 3}), first);
  EXPECT_EQ(map.GetCharacterCount(), 1u);
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(Place({kHome, 24, 0}));
  EXPECT_EQ(player.GetField(), map.GetField(kHome));
  sync.RemoveChar(At<PacketRemoveChar>({{99, 99, 0, 0, 3}, 0, 0}));
  const std::string text = test::ReadFile("log.clf");
  EXPECT_EQ(std::ranges::count(text, '\n'), 2) << text;
  EXPECT_NE(text.find("001                       The server placed the player on a field that does not exist\n"),
            std::string::npos);
  EXPECT_NE(text.find("001                       Could not remove char\n"), std::string::npos);
}

TEST_F(WorldSynchronizerTest, KeepsWhatTheServerSendsInMapAndCache) {
  PacketAreaVolu volu;
  static_cast<AreaHeader&>(volu) = {kHome, 4};
  volu.mUintVolu.fill(6600);
  sync.UpdateAreaVolu(volu);
  PacketAreaGround ground;
  static_cast<AreaHeader&>(ground) = {kHome, 5};
  std::iota(ground.mUintGround.begin(), ground.mUintGround.end(), 0u);
  ground.mBySmoothness.fill(0xF7);
  sync.UpdateAreaGround(ground);
  for (const AreaPosition& elsewhere : {AreaPosition{10, 20, 4, 4, 2}, {11, 20, 4, 4, 3}, {9, 20, 12, 4, 3}}) {
    static_cast<AreaHeader&>(ground) = {elsewhere, 99};
    sync.UpdateAreaGround(ground);
  }
  EXPECT_EQ(map.GetCenterArea()->GetVersion(), 5) << "other level, other area, no area";
  Area cached;
  cached.SetPosition(kHome);
  ASSERT_TRUE(cached.Load("area/"));
  EXPECT_EQ(cached.GetVersion(), 5);
  EXPECT_EQ(cached.GetField(1, 1)->GetGroundId(), 25u);
  EXPECT_EQ(cached.GetField(23, 23)->GetVoluId(), 6600u);
  EXPECT_EQ(cached.GetField(23, 23)->GetSmoothness(), 7);
}

TEST_F(WorldSynchronizerTest, FollowsThePlayerIntoEveryNeighbour) {
  // For each direction: from where the player leaves by it, and which row and column then come into view.
  constexpr int kNone = -1;
  struct {
    std::uint8_t fx, fy;
    int row, column;
  } constexpr kCases[] = {{0, 23, 0, 6}, {5, 23, kNone, 6}, {23, 23, 6, 6}, {23, 5, 6, kNone},
                          {23, 0, 6, 0}, {5, 0, kNone, 0},  {0, 0, 0, 0},   {0, 5, 0, kNone}};
  for (std::uint32_t d = 0; d < 8; ++d) {
    SCOPED_TRACE(d);
    const FieldPosition start{kHome, kCases[d].fx, kCases[d].fy};
    Place(start);
    toServer.clear();
    toDisplay.clear();
    Add({kHome, 23, 12});
    Move({kHome, 23, 12}, 3);
    EXPECT_TRUE(toServer.empty()) << "somebody else crossed the border";
    const Area* target = map.GetField(start)->GetNeighbor(static_cast<Direction>(d))->GetArea();
    Move(start, d);
    EXPECT_EQ(map.GetCenterArea(), target);
    EXPECT_EQ(player.GetField()->GetArea(), target);
    EXPECT_TRUE(player.IsMoving());
    std::vector<int> expected;
    for (int i = 0; i < 7; ++i) {
      if (kCases[d].row != kNone) expected.push_back(kCases[d].row * 7 + i);
      if (kCases[d].column != kNone) expected.push_back(i * 7 + kCases[d].column);
    }
    EXPECT_EQ(AskedFor(), expected);
    EXPECT_TRUE(toDisplay.empty()) << "no progress for these";
  }
}

TEST_F(WorldSynchronizerTest, NobodyStepsOntoAnotherOrFromAnotherLevel) {
  const FieldPosition beside = {kHome, 12, 13};
  const ClientCharacter* other = Add(beside);
  Move(kHome, 1);
  Move(beside, 5);
  Move({{10, 20, 4, 4, 0}, 12, 13}, 0);
  EXPECT_EQ(other->GetField(), map.GetField(beside));
  EXPECT_EQ(player.GetField(), map.GetField(kHome));
  EXPECT_FALSE(other->IsMoving() || player.IsMoving());
}

}  // namespace
}  // namespace tolva
