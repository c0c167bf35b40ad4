#include <array>
#include <map>
#include <random>
#include <set>

#include "CoreFixture.h"
#include "protocol/PacketDispatch.h"

namespace tolva::test {
namespace {

// What a client's map would show after the packets that it got. Fails on a packet that a client would drop, or show as
// somebody who comes out of nowhere.
struct Picture {
  explicit Picture(FakeClient& its) : client(its), heading(kDirections[its.id % kDirectionCount]) {}

  void Take(const Packet& packet, TimePoint now) {
    Dispatch(
        packet, [&](const PacketCharPosition& position) { Enter(ToPoint(position)); },
        [&](const PacketAddChar& added) { Add(ToPoint(added), now); },
        [&](const PacketRemoveChar& removed) {
          Count(now);
          Remove(ToPoint(removed));
        },
        [&](const PacketMove& move) { Move(ToPoint(move), Next(ToPoint(move), move.mEnmDirection), now); },
        [&](const PacketGameChatMsg& chat) { Hear(ToPoint(chat), chat.mStrUser); },
        [](const PacketDarkness& darkness) { EXPECT_EQ(darkness.mByDarkness % 10, 0); });
  }
  void Enter(WorldPoint point) {
    own = point;
    others.clear();
    times.clear();
  }
  void Add(WorldPoint point, TimePoint now) {
    Count(now);
    EXPECT_TRUE(Sees(point)) << "somebody appears out of sight";
    EXPECT_NE(point, own) << "somebody appears on the player's own field";
    EXPECT_TRUE(others.insert(point).second) << "somebody appears on a taken field";
  }
  void Remove(WorldPoint point) { EXPECT_EQ(others.erase(point), 1U) << "nobody stands there"; }
  void Move(WorldPoint from, WorldPoint to, TimePoint now) {
    if (from == own) {
      EXPECT_FALSE(others.contains(to)) << "the player steps onto a taken field";
      own = to;
      ++steps;
      return;
    }
    EXPECT_TRUE(Sees(from)) << "a step begins out of sight";
    Remove(from);
    Add(to, now);
  }
  void Hear(WorldPoint speaker, const char* name) {
    EXPECT_TRUE(speaker == own || others.contains(speaker)) << "nobody stands where the line comes from";
    heard.insert(name);
  }
  bool Sees(WorldPoint point) const { return Distance(own, point) <= kSight; }
  // Packets about other characters: at most 40 in a second.
  void Count(TimePoint now) {
    times.push_back(now);
    if (times.size() <= 40) return;
    EXPECT_GE(now - times[times.size() - 41], 1s);
  }

  FakeClient& client;
  Direction heading;
  int steps = 0;
  WorldPoint own;
  std::set<WorldPoint> others;
  std::multiset<std::string> heard;
  std::vector<TimePoint> times;
};

class RealmTest : public CoreFixture {
 protected:
  Picture& Enter(const std::string& name) {
    FakeClient& client = LogIn(name);
    Deliver(client, PacketEnterGameRequest());
    Picture& picture = mPictures.emplace_back(client);
    Follow();
    return picture;
  }
  void Follow() {
    for (Picture& picture : mPictures) {
      for (const auto& packet : picture.client.received) picture.Take(*packet, mNow);
      picture.client.received.clear();
    }
  }
  void Rest(Duration time) {
    for (const TimePoint end = mNow + time; mNow < end; Follow()) Pass(100ms);
  }
  // Each walks in haste, for `count` steps, mostly straight on. Calls `check` after each step.
  void Walk(int count, auto&& check) {
    for (int i = 0; i < count; ++i) {
      for (Picture& picture : mPictures) WalkOn(picture);
      Rest(400ms);
      check();
    }
  }
  void WalkOn(Picture& picture) {
    const int before = picture.steps;
    for (const Direction direction : {Direction::None, Direction{8}, picture.heading, picture.heading}) {
      Deliver(picture.client, PacketMoveRequest(direction));
    }
    Follow();
    EXPECT_TRUE(mWorld.IsWalkable(ToPosition(picture.own)));
    if (picture.steps == before || mRandom() % 50 == 0) picture.heading = kDirections[mRandom() % kDirectionCount];
  }
  void ExpectAllSeeExactlyWhoIsNear() {
    for (const Picture& viewer : mPictures) {
      std::set<WorldPoint> near;
      for (const Picture& other : mPictures) {
        if (&other != &viewer && viewer.Sees(other.own)) near.insert(other.own);
      }
      ASSERT_EQ(viewer.others, near) << viewer.client.id;
    }
  }

  World mWorld{1};
  std::mt19937 mRandom{7};
  std::list<Picture> mPictures;
};

TEST_F(RealmTest, FewWalkersAlwaysSeeAndHearExactlyWhoIsNear) {
  for (int i = 0; i < 6; ++i) Enter("User" + std::to_string(i));
  const Picture& speaker = mPictures.front();
  std::set<std::size_t> counts;
  for (int i = 0; i < 90; ++i) {
    Walk(10, [&] { ExpectAllSeeExactlyWhoIsNear(); });
    counts.insert(speaker.others.size());
    for (Picture& picture : mPictures) picture.heard.clear();
    Say(speaker.client, "hello");
    Follow();
    for (const Picture& picture : mPictures) {
      EXPECT_EQ(picture.heard.count("User0"), picture.Sees(speaker.own) ? 1U : 0U);
    }
  }
  EXPECT_GE(counts.size(), 3U) << "nobody came into sight or left it";
  for (const Picture& picture : mPictures) EXPECT_LE(picture.steps, 900 * 400 / 350 + 3) << "faster than people walk";
}

TEST_F(RealmTest, CrowdCostsNobodyMoreThanTheirShareAndIsShownRightOnceItRests) {
  for (int i = 0; i < 60; ++i) Enter("User" + std::to_string(i));
  Walk(60, [this] {
    const auto picture = std::next(mPictures.begin(), mRandom() % mPictures.size());
    Deliver(picture->client, PacketEnterChatRequest());
    Deliver(picture->client, PacketEnterGameRequest());
    if (mRandom() % 4 != 0) return Follow();
    Leave(picture->client);
    mPictures.erase(picture);
  });
  Rest(10s);
  ExpectAllSeeExactlyWhoIsNear();
}

TEST_F(RealmTest, PlayerWhoLeavesVanishesAndComesBackToTheSameField) {
  const Picture& anna = Enter("Anna");
  const Picture& bert = Enter("Bert");
  Walk(10, [] {});
  const WorldPoint field = bert.own;
  Deliver(bert.client, PacketEnterChatRequest());
  EXPECT_EQ(bert.client.Last<PacketUserInGame>().mUintCount, 1U);
  Say(bert.client, "/who");
  EXPECT_EQ(bert.client.LastLine(), "*** |In the world: Anna");
  Follow();
  EXPECT_TRUE(anna.others.empty());
  Deliver(bert.client, PacketEnterGameRequest());
  Follow();
  EXPECT_EQ(bert.own, field);
  EXPECT_EQ(anna.others, std::set{field});
}

TEST_F(RealmTest, AreasAreAnsweredInOrderEachWithItsContentOrAsCurrent) {
  const Picture& anna = Enter("Anna");
  std::vector<std::pair<PacketCode, int>> expected;
  for (int i = 0; i < kMapAreas; ++i) {
    const AreaPosition area =
        ToPosition(Moved(anna.own, (i / kMapEdge - kMapCenter) * kAreaEdge, (i % kMapEdge - kMapCenter) * kAreaEdge));
    const std::uint8_t current = mWorld.GetArea(area)->version;
    const auto outdated = static_cast<std::uint8_t>(current % 255 + 1);
    Deliver(anna.client, PacketAreaVersion({area, std::array{current, std::uint8_t{0}, outdated}[i % 3]}));
    if (i % 3 == 0) {
      expected.emplace_back(PacketAreaVersion::kCode, current);
    } else {
      expected.insert(expected.end(), {{PacketAreaGround::kCode, 0}, {PacketAreaVolu::kCode, current}});
    }
  }
  EXPECT_LT(anna.client.received.size(), 49U) << "one burst could fill a connection's queue";
  AreaPosition noArea = ToPosition(anna.own);
  noArea.mByAx = kRegionEdge;
  AreaPosition noLevel = ToPosition(anna.own);
  noLevel.mByLevel = -1;
  AreaPosition outOfReach = ToPosition(anna.own);
  outOfReach.mUintRx += 1000;
  for (const AreaPosition& odd : {noArea, noLevel, outOfReach}) Deliver(anna.client, PacketAreaVersion({odd, 0}));
  expected.emplace_back(PacketAreaVersion::kCode, 0);  // only the last has an answer: current, without a look
  Pass(2s);

  std::vector<std::pair<PacketCode, int>> got;
  const auto take = [&](const auto& answer) { got.emplace_back(answer.kCode, answer.mByVersion); };
  for (const auto& packet : anna.client.received) {
    Dispatch(
        *packet, [&](const PacketAreaVersion& answer) { take(answer); },
        [&](const PacketAreaGround& answer) {
          take(answer);
          EXPECT_EQ(answer.mUintGround, mWorld.GetArea(answer)->ground);
        },
        [&](const PacketAreaVolu& answer) {
          take(answer);
          EXPECT_EQ(answer.mUintVolu, mWorld.GetArea(answer)->volu);
        });
  }
  EXPECT_EQ(got, expected);
}

TEST_F(RealmTest, EveryUserFindsAFieldToArriveOn) {
  for (const std::uint64_t seed : {1, 2, 3, 4}) {
    World world(seed);
    Crowd crowd(world);
    const ArrivalFields fields(crowd, 524);
    EXPECT_EQ(fields.GetSquareSize(), 160U) << seed;
    EXPECT_EQ(std::set(fields.GetAll().begin(), fields.GetAll().end()).size(), 524U) << seed;
    for (const WorldPoint& field : fields.GetAll()) EXPECT_TRUE(world.IsWalkable(ToPosition(field))) << seed;
  }
}

TEST_F(RealmTest, VillagersStrollAndTalkButDoNotStopWherePlayersArrive) {
  mCore.emplace(ServerOptions{.villagers = 6}, mLog, mNow);
  Crowd crowd(mWorld);
  const std::vector<WorldPoint> square = ArrivalFields(crowd, 0).GetAll();
  const Picture& anna = Enter("Anna");
  std::map<WorldPoint, int> stays;
  for (int i = 0; i < 3000; ++i) {
    Rest(100ms);
    for (const WorldPoint& point : anna.others) ++stays[point];
    for (auto& [point, stay] : stays) stay = anna.others.contains(point) ? stay : 0;
    for (const WorldPoint& arrival : square) ASSERT_LT(stays[arrival], 20);
  }
  EXPECT_GT(stays.size(), square.size() + 30) << "nobody strolls";
  EXPECT_FALSE(anna.heard.empty());
  EXPECT_LE(anna.heard.size(), 8U);
}

TEST(WorldPoint, GoesOnWhereRegionNumbersWrapAround) {
  const WorldPoint last{kWorldEdge - 1, kWorldEdge - 1};
  EXPECT_EQ(Next(last, Direction::East), (WorldPoint{0, 0}));
  EXPECT_EQ(ToPoint(ToPosition(Moved({0, 3}, -1, -4))), last);
}

TEST(CharacterIndex, FindsWhoIsNearWhereRegionNumbersWrapAround) {
  CharacterIndex index;
  WorldCharacter far{1, "", {32, kWorldEdge - 1}};
  WorldCharacter near{2, "", {31, 31}};
  index.Add(far);
  index.Add(near);
  EXPECT_EQ(index.FindNear({kWorldEdge - 1, kWorldEdge - 1}, 32), std::vector<const WorldCharacter*>{&near});
}

}  // namespace
}  // namespace tolva::test
