#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "CoreFixture.h"
#include "world/Steps.h"

namespace tolva::test {
namespace {

// What a client's map would show, made from the packets that it got. Complains of every packet that a client would
// drop, or show as somebody who comes from nowhere.
struct Picture {
  explicit Picture(FakeClient& itsClient) : client(itsClient) {}
  void Follow(TimePoint now) {
    for (const auto& packet : client.received) Take(*packet, now);
    client.received.clear();
  }
  void Take(const Packet& packet, TimePoint now) {
    if (const auto* position = PacketCast<PacketCharPosition>(&packet)) {
      own = ToPoint(*position);
      others.clear();
      times.clear();
    } else if (const auto* add = PacketCast<PacketAddChar>(&packet)) {
      Count(now);
      EXPECT_TRUE(Sees(ToPoint(*add)) && ToPoint(*add) != own && others.insert(ToPoint(*add)).second);
    } else if (const auto* gone = PacketCast<PacketRemoveChar>(&packet)) {
      Count(now);
      EXPECT_EQ(others.erase(ToPoint(*gone)), 1U);
    } else if (const auto* move = PacketCast<PacketMove>(&packet)) {
      const WorldPoint from = ToPoint(*move), to = Next(from, move->mEnmDirection);
      EXPECT_FALSE(to == own || others.contains(to));
      if (from == own) return OwnStep(to);
      Count(now);
      EXPECT_TRUE(Sees(from) && Sees(to) && others.erase(from) == 1 && others.insert(to).second);
    } else if (const auto* said = PacketCast<PacketGameChatMsg>(&packet)) {
      EXPECT_TRUE(ToPoint(*said) == own || others.contains(ToPoint(*said)));
      heard[said->mStrUser] = ToPoint(*said);
    }
  }
  void OwnStep(WorldPoint to) {
    ++steps;
    own = to;
    std::erase_if(others, [&](WorldPoint point) { return DistanceInAreas(own, point) > 3; });
  }
  bool Sees(WorldPoint point) const { return Distance(own, point) <= kSight; }
  void Count(TimePoint now) {
    times.push_back(now);
    EXPECT_FALSE(times.size() > 40 && now - times[times.size() - 41] < 1s) << "more than 40 packets in a second";
  }

  FakeClient& client;
  WorldPoint own;
  std::set<WorldPoint> others;
  std::map<std::string, WorldPoint> heard;
  std::vector<TimePoint> times;
  int steps = 0;
  Direction heading = Direction::None;
};

class RealmTest : public CoreFixture {
 protected:
  using CoreFixture::CoreFixture;

  Picture& Enter(const std::string& name) {
    FakeClient& client = LogIn(name);
    client.received.clear();
    Deliver(client, PacketEnterGameRequest());
    mPictures.emplace_back(client).heading = static_cast<Direction>(client.id % 8);
    mPictures.back().Follow(mNow);
    return mPictures.back();
  }
  void Follow() {
    for (Picture& picture : mPictures) picture.Follow(mNow);
  }
  void Rest(Duration time) {
    for (const TimePoint end = mNow + time; mNow < end; Follow()) Pass(100ms);
  }
  // Asks for a step and says whether it was made.
  bool Step(Picture& picture, Direction direction) {
    const int before = picture.steps;
    Deliver(picture.client, PacketMoveRequest(direction));
    Follow();
    return picture.steps > before;
  }
  // Lets all walk, each mostly its own way, for so many steps; after each, `check` is called.
  template <typename Check>
  void Walk(int count, Check&& check) {
    for (int i = 0; i < count; ++i, Rest(400ms), check()) {
      for (Picture& picture : mPictures) {
        const WorldPoint target = Next(picture.own, picture.heading);
        const bool hasStepped = Step(picture, picture.heading);
        EXPECT_TRUE(!hasStepped || mWorld.IsWalkable(ToPosition(target)));
        if (!hasStepped || mRandom() % 50 == 0) picture.heading = static_cast<Direction>(mRandom() % 8);
      }
    }
  }
  void ExpectTruth() {
    for (const Picture& viewer : mPictures) {
      std::set<WorldPoint> near;
      for (const Picture& other : mPictures)
        if (&other != &viewer && viewer.Sees(other.own)) near.insert(other.own);
      ASSERT_EQ(viewer.others, near) << viewer.client.id;
    }
  }

  World mWorld{1};
  std::mt19937 mRandom{7};
  std::list<Picture> mPictures;
};

TEST_F(RealmTest, FewWalkersAlwaysSeeExactlyWhoIsNear) {
  for (int i = 0; i < 6; ++i) Enter("User" + std::to_string(i));
  std::set<std::size_t> counts;
  for (int i = 0; i < 60; ++i) {
    Walk(10, [&] { ExpectTruth(); });
    counts.insert(mPictures.front().others.size());
    for (Picture& picture : mPictures) picture.heard.clear();
    Say(mPictures.front().client, "hello");
    Follow();
    for (const Picture& picture : mPictures)
      EXPECT_EQ(picture.heard.count("User0"), picture.Sees(mPictures.front().own) ? 1U : 0U);
  }
  EXPECT_GE(counts.size(), 3U) << "nobody came into sight or left it";
}

TEST_F(RealmTest, CrowdCostsNobodyMoreThanItsShareAndIsSeenRightOnceItRests) {
  for (int i = 0; i < 60; ++i) Enter("User" + std::to_string(i));
  Walk(60, [this] {
    const Picture& picture = *std::next(mPictures.begin(), mRandom() % 60);
    Say(picture.client, "brb");
    Deliver(picture.client, PacketEnterChatRequest());
    Deliver(picture.client, PacketEnterGameRequest());
    Follow();
  });
  Rest(10s);
  ExpectTruth();
}

TEST_F(RealmTest, StepsAreNoFasterThanPeopleWalkAndAnOddDirectionIsNone) {
  Picture& anna = Enter("Anna");
  for (int i = 0; i < 100; ++i, Rest(100ms)) Step(anna, static_cast<Direction>(i % 8));
  EXPECT_GT(anna.steps, 10);
  EXPECT_LE(anna.steps, 30);
  for (const std::uint32_t odd : {8U, 64U, 0xFFFFFFFFU}) EXPECT_FALSE(Step(anna, static_cast<Direction>(odd)));
  EXPECT_FALSE(anna.client.isClosed);
}

TEST_F(RealmTest, WhoLeavesVanishesAndComesBackWhereHeStood) {
  Picture& anna = Enter("Anna");
  Picture& bert = Enter("Bert");
  Walk(10, [] {});
  const WorldPoint place = bert.own;
  Deliver(bert.client, PacketEnterChatRequest());
  EXPECT_EQ(bert.client.Last<PacketUserInGame>().mUintCount, 1U);
  Say(bert.client, "/who");
  EXPECT_EQ(bert.client.LastLine(), "*** |In the world: Anna");
  Follow();
  EXPECT_TRUE(anna.others.empty());
  Deliver(bert.client, PacketEnterGameRequest());
  Follow();
  EXPECT_EQ(bert.own, place);
  EXPECT_EQ(anna.others, std::set{place});
  Leave(bert.client);
  Follow();
  EXPECT_TRUE(anna.others.empty());
}

TEST_F(RealmTest, AreasAreAnsweredInOrderEachWithItsContentOrAsCurrent) {
  const Picture& anna = Enter("Anna");
  PacketAreaVersion odd;
  std::vector<std::string> expected, got;
  const auto line = [](const Packet& packet, const AreaHeader& header) {
    const WorldPoint corner = ToPoint({header, 0, 0});
    return std::to_string(packet.mEnmCode) + ' ' + std::to_string(corner.x) + ' ' + std::to_string(corner.y) + ' ' +
           std::to_string(header.mByVersion);
  };
  for (int i = 0; i < 49; ++i) {
    static_cast<AreaPosition&>(odd) = ToPosition(Moved(anna.own, (i / 7 - 3) * 24, (i % 7 - 3) * 24));
    const std::uint8_t current = mWorld.GetArea(odd)->version;
    odd.mByVersion = static_cast<std::uint8_t>(i % 3 == 0 ? current : i % 3 == 1 ? 0 : current % 255 + 1);
    Deliver(anna.client, odd);
    if (i % 3 == 0) expected.push_back(line(odd, odd));
    if (i % 3 == 0) continue;
    odd.mByVersion = 0;
    expected.push_back(line(PacketAreaGround(), odd));
    odd.mByVersion = current;
    expected.push_back(line(PacketAreaVolu(), odd));
  }
  EXPECT_LT(anna.client.received.size(), 49U) << "one burst could fill a connection's queue";
  odd.mByVersion = 0;
  for (std::uint8_t* part : {&odd.mByAx, &odd.mByAy, reinterpret_cast<std::uint8_t*>(&odd.mByLevel)}) {
    const std::uint8_t good = std::exchange(*part, 8);
    Deliver(anna.client, odd);
    *part = good;
  }
  // Out of reach: not worth an area, but an answer.
  odd.mUintRx += 1000;
  Deliver(anna.client, odd);
  expected.push_back(line(odd, odd));
  Pass(2s);
  for (const auto& packet : anna.client.received) {
    if (const auto* current = PacketCast<PacketAreaVersion>(packet.get())) got.push_back(line(*packet, *current));
    if (const auto* ground = PacketCast<PacketAreaGround>(packet.get())) {
      got.push_back(line(*packet, *ground));
      const auto content = mWorld.GetArea(*ground);
      EXPECT_TRUE(ground->mUintGround == content->ground && ground->mBySmoothness == content->smoothness);
    }
    if (const auto* volu = PacketCast<PacketAreaVolu>(packet.get())) {
      got.push_back(line(*packet, *volu));
      EXPECT_EQ(volu->mUintVolu, mWorld.GetArea(*volu)->volu);
    }
  }
  EXPECT_EQ(got, expected);
}

struct VillagersTest : RealmTest {
  VillagersTest() : RealmTest(6) {}
};

TEST_F(VillagersTest, StrollAndTalkButDoNotStopWherePlayersArrive) {
  Picture& anna = Enter("Anna");
  std::map<WorldPoint, int> stays;
  int lines = 0;
  for (int i = 0; i < 3000; ++i, anna.heard.clear()) {
    Rest(100ms);
    lines += static_cast<int>(anna.heard.size());
    for (const WorldPoint& point : anna.others) ++stays[point];
    for (auto& [point, stay] : stays)
      if (!anna.others.contains(point)) stay = 0;
    for (const FieldPosition& arrival : mWorld.GetArrivals()) ASSERT_LT(stays[ToPoint(arrival)], 20);
  }
  EXPECT_GT(std::count_if(stays.begin(), stays.end(), [](const auto& stay) { return !stay.second; }), 50);
  EXPECT_LE(lines, 8);
}

TEST(WorldPoint, GoesOnWhereRegionNumbersWrapAround) {
  const WorldPoint last{kWorldEdge - 1, kWorldEdge - 1};
  EXPECT_EQ(Next(last, Direction::East), (WorldPoint{0, 0}));
  EXPECT_EQ(Moved({0, 3}, -1, -4), last);
  EXPECT_EQ(DirectionTo({0, 5}, {kWorldEdge - 1, 6}), Direction::North);
  EXPECT_EQ(ToPosition(last).mUintRx, 0xFFFFFFFF);
  EXPECT_EQ(ToPoint(ToPosition(last)), last);
  CharacterIndex index;
  WorldCharacter far{1, "", {32, kWorldEdge - 1}}, near{2, "", {31, 31}};
  index.Add(far), index.Add(near);
  EXPECT_EQ(index.FindNear(last, 32), std::vector{&near});
}

}  // namespace
}  // namespace tolva::test
