#include <array>
#include <map>
#include <random>
#include <set>

#include "CoreFixture.h"
#include "protocol/FieldPosition.h"

namespace tolva::test {
namespace {

// What a client's map would show, made from the packets that it got. Complains of every packet that a client would
// drop, or show as somebody who comes from nowhere.
struct Picture {
  explicit Picture(FakeClient& its) : client(its), heading(static_cast<Direction>(its.id % kDirectionCount)) {}
  void Take(const Packet& packet, TimePoint now) {
    if (const auto* position = PacketCast<PacketCharPosition>(&packet)) {
      own = ToPoint(*position);
      others.clear(), times.clear();
    } else if (const auto* add = PacketCast<PacketAddChar>(&packet)) {
      EXPECT_TRUE(Count(now) && Sees(ToPoint(*add)) && ToPoint(*add) != own && others.insert(ToPoint(*add)).second);
    } else if (const auto* gone = PacketCast<PacketRemoveChar>(&packet)) {
      EXPECT_TRUE(Count(now) && others.erase(ToPoint(*gone)) == 1);
    } else if (const auto* move = PacketCast<PacketMove>(&packet)) {
      const WorldPoint from = ToPoint(*move), to = Next(from, move->mEnmDirection);
      EXPECT_FALSE(to == own || others.contains(to));
      if (from == own) return static_cast<void>((++steps, own = to));
      EXPECT_TRUE(Count(now) && Sees(from) && Sees(to) && others.erase(from) && others.insert(to).second);
    } else if (const auto* said = PacketCast<PacketGameChatMsg>(&packet)) {
      EXPECT_TRUE(ToPoint(*said) == own || others.contains(ToPoint(*said)));
      heard.insert(said->mStrUser);
    } else if (const auto* darkness = PacketCast<PacketDarkness>(&packet)) {
      EXPECT_EQ(darkness->mByDarkness % 10, 0);
    }
  }
  bool Sees(WorldPoint point) const { return Distance(own, point) <= kSight; }
  // Whether this is one of no more than 40 in a second.
  bool Count(TimePoint now) {
    times.push_back(now);
    return times.size() <= 40 || now - times[times.size() - 41] >= 1s;
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
  // Lets all walk in haste, each mostly its own way, for so many steps; after each, `check` is called.
  void Walk(int count, auto&& check) {
    for (int i = 0; i < count; ++i, Rest(400ms), check()) {
      for (Picture& picture : mPictures) {
        const int before = picture.steps;
        for (const Direction direction : {Direction::None, Direction{8}, picture.heading, picture.heading})
          Deliver(picture.client, PacketMoveRequest(direction));
        Follow();
        EXPECT_TRUE(mWorld.IsWalkable(ToPosition(picture.own)));
        if (picture.steps == before || mRandom() % 50 == 0) picture.heading = static_cast<Direction>(mRandom() % 8);
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
  for (int i = 0; i < 90; ++i) {
    Walk(10, [&] { ExpectTruth(); });
    counts.insert(mPictures.front().others.size());
    for (Picture& picture : mPictures) picture.heard.clear();
    Say(mPictures.front().client, "hello");
    Follow();
    for (const Picture& picture : mPictures)
      EXPECT_EQ(picture.heard.count("User0"), picture.Sees(mPictures.front().own) ? 1U : 0U);
  }
  EXPECT_GE(counts.size(), 3U) << "nobody came into sight or left it";
  for (const Picture& picture : mPictures) EXPECT_LE(picture.steps, 900 * 400 / 350 + 3) << "faster than people walk";
}

TEST_F(RealmTest, CrowdCostsNobodyMoreThanItsShareAndIsSeenRightOnceItRests) {
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
  ExpectTruth();
}

TEST_F(RealmTest, WhoLeavesVanishesAndComesBackWhereHeStood) {
  const Picture& anna = Enter("Anna");
  const Picture& bert = Enter("Bert");
  Walk(10, [] {});
  const std::set place{bert.own};
  Deliver(bert.client, PacketEnterChatRequest());
  EXPECT_EQ(bert.client.Last<PacketUserInGame>().mUintCount, 1U);
  Say(bert.client, "/who");
  EXPECT_EQ(bert.client.LastLine(), "*** |In the world: Anna");
  Follow();
  EXPECT_TRUE(anna.others.empty());
  Deliver(bert.client, PacketEnterGameRequest());
  Follow();
  EXPECT_TRUE(anna.others == place && place.contains(bert.own));
}

TEST_F(RealmTest, AreasAreAnsweredInOrderEachWithItsContentOrAsCurrent) {
  const Picture& anna = Enter("Anna");
  std::vector<std::pair<PacketCode, int>> expected, got;
  PacketAreaVersion question;
  for (int i = 0; i < 49; ++i) {
    static_cast<AreaPosition&>(question) = ToPosition(Moved(anna.own, (i / 7 - 3) * 24, (i % 7 - 3) * 24));
    const int current = mWorld.GetArea(question)->version;
    question.mByVersion = static_cast<std::uint8_t>(std::array{current, 0, current % 255 + 1}[i % 3]);
    Deliver(anna.client, question);
    if (i % 3 == 0) expected.emplace_back(702, current);
    if (i % 3 != 0) expected.insert(expected.end(), {{700, 0}, {701, current}});
  }
  EXPECT_LT(anna.client.received.size(), 49U) << "one burst could fill a connection's queue";
  const auto [rx, ry, ax, ay, level] = static_cast<AreaPosition&>(question);
  // Nowhere, and out of reach: that is not worth an area, but an answer.
  for (const PacketAreaVersion& odd :
       {PacketAreaVersion({{rx, ry, 8, ay, 0}, 0}), PacketAreaVersion({{rx, ry, ax, ay, -1}, 0}),
        PacketAreaVersion({{rx + 1000, ry, ax, ay, level}, 0})})
    Deliver(anna.client, odd);
  expected.emplace_back(702, 0);
  Pass(2s);
  for (const auto& packet : anna.client.received) {
    if (const auto* version = PacketCast<PacketAreaVersion>(packet.get())) got.emplace_back(702, version->mByVersion);
    if (const auto* ground = PacketCast<PacketAreaGround>(packet.get()))
      got.emplace_back(700, ground->mUintGround == mWorld.GetArea(*ground)->ground ? ground->mByVersion : -1);
    if (const auto* volu = PacketCast<PacketAreaVolu>(packet.get()))
      got.emplace_back(701, volu->mUintVolu == mWorld.GetArea(*volu)->volu ? volu->mByVersion : -1);
  }
  EXPECT_EQ(got, expected);
}

TEST_F(RealmTest, VillagersStrollAndTalkButDoNotStopWherePlayersArrive) {
  mCore.emplace(ServerOptions{.villagers = 6}, mLog, mNow);
  Picture& anna = Enter("Anna");
  std::map<WorldPoint, int> stays;
  for (int i = 0; i < 3000; ++i) {
    Rest(100ms);
    for (const WorldPoint& point : anna.others) ++stays[point];
    for (auto& [point, stay] : stays) stay = anna.others.contains(point) ? stay : 0;
    for (const FieldPosition& arrival : mWorld.GetArrivals()) ASSERT_LT(stays[ToPoint(arrival)], 20);
  }
  EXPECT_GT(stays.size(), mWorld.GetArrivals().size() + 30);
  EXPECT_LE(anna.heard.size(), 8U);
}

TEST(WorldPoint, GoesOnWhereRegionNumbersWrapAround) {
  const WorldPoint last{kWorldEdge - 1, kWorldEdge - 1};
  EXPECT_EQ(Next(last, Direction::East), (WorldPoint{0, 0}));
  EXPECT_EQ(ToPoint(ToPosition(Moved({0, 3}, -1, -4))), last);
  CharacterIndex index;
  WorldCharacter far{1, "", {32, kWorldEdge - 1}}, near{2, "", {31, 31}};
  index.Add(far), index.Add(near);
  EXPECT_EQ(index.FindNear(last, 32), std::vector{&near});
}

}  // namespace
}  // namespace tolva::test
