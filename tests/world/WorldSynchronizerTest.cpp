#include <array>
#include <filesystem>

#include "protocol/PacketList.h"
#include "world/SyncWorld.h"
#include "world/WorldSynchronizer.h"

namespace tolva {
namespace {

using test::At;
using test::PositionOf;
using test::SyncWorld;

constexpr FieldPosition kHome = {{10, 20, 4, 4, 3}, 12, 12};

// The places in the map that the sent requests ask for.
std::vector<std::pair<int, int>> AskedFor(SyncWorld& world) {
  std::vector<std::pair<int, int>> places;
  for (const auto& packet : world.toServer) {
    const auto* request = PacketCast<PacketAreaVersion>(packet.get());
    const Area* area = request == nullptr ? nullptr : world.map.GetArea(*request);
    for (std::uint8_t i = 0; i < 49 && area != nullptr; ++i) {
      if (world.map.GetAreaAt(i / 7, i % 7) == area) places.emplace_back(i / 7, i % 7);
    }
  }
  return places;
}

struct WorldSynchronizerTest : testing::Test {
  WorldSynchronizerTest() { EXPECT_TRUE(world.Place(kHome)); }
  Field* FieldAt(const FieldPosition& position) { return world.map.GetField(position); }
  ClientCharacter* Add(const FieldPosition& position) {
    world.sync.AddChar(At<PacketAddChar>(position));
    return ClientCharacter::On(*FieldAt(position));
  }

  SyncWorld world;
};

TEST_F(WorldSynchronizerTest, AsksForEveryAreaAndCountsTheAnswers) {
  std::filesystem::create_directory("area");
  Area cached;
  cached.SetPosition({10, 20, 3, 5, 3});
  cached.SetVersion(77);
  ASSERT_TRUE(cached.Save("area/"));
  ASSERT_TRUE(world.sync.SynchronizeMap(At<PacketCharPosition>(kHome)));
  EXPECT_EQ(world.player.GetField(), world.map.GetCenterArea()->GetField(12, 12));
  const auto asked = AskedFor(world);
  ASSERT_EQ(asked.size(), 49u);
  for (int i = 0; i < 49; ++i) {
    EXPECT_EQ(asked[static_cast<std::size_t>(i)], std::pair(i / 7, i % 7));
    const auto* request = PacketCast<PacketAreaVersion>(world.toServer[static_cast<std::size_t>(i)].get());
    EXPECT_EQ(request->mByVersion, i == 2 * 7 + 4 ? 77 : 0) << "the version in the cache";
    EXPECT_EQ(request->mByLevel, 3);
  }
  for (int answer = 0; answer < 52; ++answer) world.sync.CountAreaAnswer();
  ASSERT_EQ(world.toDisplay.size(), 50u) << "answers beyond the expected show nothing";
  for (std::size_t i = 0; i < 50; ++i) {
    const auto* status = PacketCast<PacketInternStatus>(world.toDisplay[i].get());
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->mUintValue, i);
    EXPECT_EQ(status->mUintMaxValue, 49);
  }
}

TEST_F(WorldSynchronizerTest, RefusesAPlacementThatNamesNoField) {
  const Field* before = world.player.GetField();
  for (const auto& [ax, ay, fx, fy] : {std::array{8, 4, 0, 0}, {4, 255, 0, 0}, {4, 4, 24, 0}, {4, 4, 0, 255}}) {
    PacketCharPosition packet;
    packet.mByAx = static_cast<std::uint8_t>(ax);
    packet.mByAy = static_cast<std::uint8_t>(ay);
    packet.mByFx = static_cast<std::uint8_t>(fx);
    packet.mByFy = static_cast<std::uint8_t>(fy);
    EXPECT_FALSE(world.sync.SynchronizeMap(packet));
  }
  EXPECT_EQ(world.player.GetField(), before);
  EXPECT_TRUE(world.toServer.empty());
  EXPECT_TRUE(world.toDisplay.empty());
}

TEST_F(WorldSynchronizerTest, KeepsWhatTheServerSendsInMapAndCache) {
  std::filesystem::create_directory("area");
  PacketAreaVolu volu;
  static_cast<AreaHeader&>(volu) = {kHome, 4};
  volu.mUintVolu.fill(6600);
  world.sync.UpdateAreaVolu(volu);
  PacketAreaGround ground;
  static_cast<AreaHeader&>(ground) = {kHome, 5};
  ground.mUintGround.fill(100016);
  ground.mUintGround[25] = 1;
  ground.mBySmoothness.fill(0xF7);
  world.sync.UpdateAreaGround(ground);
  EXPECT_EQ(world.map.GetCenterArea()->GetField(1, 1)->GetGroundId(), 1u);
  Area cached;
  cached.SetPosition(kHome);
  ASSERT_TRUE(cached.Load("area/"));
  EXPECT_EQ(cached.GetVersion(), 5);
  EXPECT_EQ(cached.GetField(1, 1)->GetGroundId(), 1u);
  EXPECT_EQ(cached.GetField(23, 23)->GetVoluId(), 6600u);
  EXPECT_EQ(cached.GetField(23, 23)->GetSmoothness(), 7);

  for (const AreaPosition& elsewhere : {AreaPosition{10, 20, 4, 4, 2}, {11, 20, 4, 4, 3}, {9, 20, 12, 4, 3}}) {
    static_cast<AreaHeader&>(ground) = {elsewhere, 99};
    world.sync.UpdateAreaGround(ground);
  }
  EXPECT_EQ(world.map.GetCenterArea()->GetVersion(), 5) << "other level, other area, no area";
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator("area"), {}), 1);
}

TEST_F(WorldSynchronizerTest, FollowsThePlayerIntoEveryNeighbour) {
  // From the corner or edge that the direction leaves by; the map then asks for what came into view.
  struct Case {
    Direction direction;
    std::uint8_t fx, fy;
    int row, column;
  };
  constexpr int kNone = -1;
  constexpr Case kCases[] = {{Direction::North, 0, 23, 0, 6}, {Direction::NorthEast, 5, 23, kNone, 6},
                             {Direction::East, 23, 23, 6, 6}, {Direction::SouthEast, 23, 5, 6, kNone},
                             {Direction::South, 23, 0, 6, 0}, {Direction::SouthWest, 5, 0, kNone, 0},
                             {Direction::West, 0, 0, 0, 0},   {Direction::NorthWest, 0, 5, 0, kNone}};
  for (const Case& each : kCases) {
    SCOPED_TRACE(static_cast<std::uint32_t>(each.direction));
    const FieldPosition start{kHome, each.fx, each.fy};
    world.Place(start);
    Add({kHome, 23, 12});
    world.sync.MoveChar(At<PacketMove>({kHome, 23, 12}, Direction::SouthEast));
    EXPECT_TRUE(world.toServer.empty()) << "somebody else crossed the border";
    const Area* target = FieldAt(start)->GetNeighbor(each.direction)->GetArea();
    world.sync.MoveChar(At<PacketMove>(start, each.direction));
    EXPECT_EQ(world.map.GetCenterArea(), target);
    EXPECT_EQ(world.player.GetField()->GetArea(), target);
    EXPECT_TRUE(world.player.IsMoving());
    std::vector<std::pair<int, int>> expected;
    for (int i = 0; i < 7; ++i) {
      if (each.row != kNone) expected.emplace_back(each.row, i);
      if (each.column != kNone) expected.emplace_back(i, each.column);
    }
    EXPECT_EQ(AskedFor(world), expected);
    EXPECT_TRUE(world.toDisplay.empty()) << "no progress for these";
  }
}

TEST_F(WorldSynchronizerTest, IgnoresMovesThatCannotBe) {
  const Field* corner = world.map.GetAreaAt(6, 6)->GetField(23, 23);
  const ClientCharacter* edge = Add(PositionOf(*corner));
  const FieldPosition beside{kHome, 12, 13};
  const ClientCharacter* other = Add(beside);
  FieldPosition otherLevel = beside;
  otherLevel.mByLevel = 0;
  world.sync.MoveChar(At<PacketMove>(PositionOf(*corner), Direction::East));
  world.sync.MoveChar(At<PacketMove>(kHome, Direction::NorthEast));
  world.sync.MoveChar(At<PacketMove>(beside, Direction::SouthWest));
  world.sync.MoveChar(At<PacketMove>(otherLevel, Direction::North));
  world.sync.MoveChar(At<PacketMove>({kHome, 2, 2}, Direction::North));
  world.sync.MoveChar(At<PacketMove>({kHome, 24, 12}, Direction::North));
  for (const std::uint32_t d : {8u, 64u, 0xFFFFFFFFu}) {
    world.sync.MoveChar(At<PacketMove>(beside, static_cast<Direction>(d)));
  }
  EXPECT_EQ(edge->GetField(), corner) << "the map ends there";
  EXPECT_EQ(other->GetField(), FieldAt(beside));
  EXPECT_EQ(world.player.GetField(), FieldAt(kHome)) << "nobody steps onto another";
  EXPECT_FALSE(edge->IsMoving() || other->IsMoving() || world.player.IsMoving());
}

TEST_F(WorldSynchronizerTest, AddsAndRemovesCharacters) {
  const FieldPosition beside{kHome, 12, 13};
  Add(beside);
  Add(beside);
  EXPECT_EQ(Add(kHome), &world.player) << "who stands there stays";
  EXPECT_EQ(world.map.GetCharacterCount(), 1u);
  world.sync.RemoveChar(At<PacketRemoveChar>(beside));
  world.sync.RemoveChar(At<PacketRemoveChar>(beside));
  EXPECT_EQ(world.map.GetCharacterCount(), 0u);
  world.sync.RemoveChar(At<PacketRemoveChar>(kHome));
  EXPECT_EQ(world.player.GetField(), nullptr);
  world.sync.UpdateMapAfterMove();
  EXPECT_TRUE(test::ReadFile("log.clf").empty());
  world.sync.RemoveChar(At<PacketRemoveChar>({{99, 20, 4, 4, 3}, 1, 1}));
  EXPECT_NE(test::ReadFile("log.clf").find("Could not remove char"), std::string::npos);
  EXPECT_TRUE(world.Place(kHome));
  EXPECT_EQ(world.player.GetField(), FieldAt(kHome));
}

TEST_F(WorldSynchronizerTest, LetsCharactersSpeak) {
  const FieldPosition beside{kHome, 12, 13};
  const ClientCharacter* other = Add(beside);
  auto speech = At<PacketGameChatMsg>(beside);
  CopyText(speech.mStrMsg, "hello");
  CopyText(speech.mStrUser, "Ada");
  world.sync.ShowChatMessage(speech);
  EXPECT_STREQ(other->GetChatMessage(), "hello");
  EXPECT_STREQ(other->GetName(), "Ada");
  CopyText(speech.mStrMsg, "from afar");
  speech.mByLevel = 4;
  world.sync.ShowChatMessage(speech);
  world.sync.ShowChatMessage(At<PacketGameChatMsg>({kHome, 255, 255}));
  EXPECT_STREQ(other->GetChatMessage(), "hello");
}

}  // namespace
}  // namespace tolva
