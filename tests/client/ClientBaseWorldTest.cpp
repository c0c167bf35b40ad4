#include <atomic>
#include <filesystem>

#include "client/ControllerFixture.h"

namespace tolva::test {
namespace {

class ClientBaseWorldTest : public ControllerFixture {
 protected:
  void SetUp() override {
    std::filesystem::create_directory("area");
    Connect();
  }
  ClientMap& GetMap() { return PacketCast<PacketInternRepository>(mWorld.get())->mObjRepository->GetMap(); }

  // Waits until the server gets the packet, and counts the requests for areas that come before it.
  int CountRequestsBefore(const Packet& packet) {
    int count = 0;
    while (ReceiveRecord() && mRecord != Record(packet)) count += GetRecordCode() == PacketAreaVersion::kCode ? 1 : 0;
    EXPECT_EQ(mRecord, Record(packet)) << "it never came";
    return count;
  }
  // Puts the player into the area (0, 0) of region (0, 0), and waits for the first of the requests.
  void Place() {
    FromServer(PacketCharPosition());
    EXPECT_EQ(CountRequestsBefore(mFirstRequest), 0);
  }

  const PacketAreaVersion mFirstRequest{{{0xFFFFFFFF, 0xFFFFFFFF, 5, 5, 0}, 0}};
  const PacketEnterChatRequest mEscape{};
  const PacketChatMsg mLine{"", "One more thing"};
};

TEST_F(ClientBaseWorldTest, APlacementOutOfRangeIsIgnored) {
  PacketCharPosition placement;
  placement.mByFx = kAreaEdge;
  FromServer(placement);
  Place();
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketInternStatus, PacketCharPosition>())) << "those of the second one";
}

TEST_F(ClientBaseWorldTest, GroundAndVersionCountAsAnswersForAnArea) {
  Place();
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketInternStatus, PacketCharPosition>()));
  mServer.Send(FalseClaim(PacketAreaVersion::kCode));
  FromServer(*CreatePacket(PacketAreaGround::kCode));
  FromServer(*CreatePacket(PacketAreaVolu::kCode));
  FromServer(PacketAreaVersion());
  EXPECT_EQ(mDisplay.Next(3), (CodesOf<PacketInternStatus, PacketAreaGround, PacketAreaVolu>()));
  const auto status = mDisplay.Next();
  ASSERT_NE(PacketCast<PacketInternStatus>(status.get()), nullptr);
  EXPECT_EQ(PacketCast<PacketInternStatus>(status.get())->mUintValue, 2);
  EXPECT_TRUE(std::filesystem::exists("area/0000000000000000000000"));
}

TEST_F(ClientBaseWorldTest, CharactersReachTheMapAndTheMapFollowsThePlayer) {
  PacketCharPosition placement;
  placement.mByFy = kAreaEdge - 1;
  FromServer(placement);
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketInternStatus, PacketCharPosition>()));
  FromServer(PacketAddChar());
  FromServer(PacketGameChatMsg({}, "", "hello"));
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketAddChar, PacketGameChatMsg>()));
  const Field& field = *GetMap().GetCenterArea()->GetField(0, 0);
  ASSERT_NE(field.GetCharacter(), nullptr);
  EXPECT_STREQ(ClientCharacter::On(field)->GetChatMessage(), "hello");

  FromServer(PacketRemoveChar());
  FromServer(PacketMove(placement, Direction::NorthEast));
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketRemoveChar, PacketMove>()));
  EXPECT_EQ(field.GetCharacter(), nullptr);
  // Of the ring of areas that comes into the map.
  CountRequestsBefore(PacketAreaVersion({{0, 0, 3, 4, 0}, 0}));
}

// While a placement's 49 requests wait.
TEST_F(ClientBaseWorldTest, NothingThatThePlayerDoesWaitsBehindRequests) {
  Place();
  for (const Packet* what : {static_cast<const Packet*>(&mEscape), static_cast<const Packet*>(&mLine)}) {
    mDisplay.Give(*what);
    EXPECT_LE(CountRequestsBefore(*what), 2) << "one on its way, and one that waited";
  }
  mDisplay.Give(mLine);
  mDisplay.Give(PacketQuit());
  EXPECT_LE(CountRequestsBefore(mLine), 2) << "what was said before a quit is still sent";
  mClient->WaitThread(nullptr);
  mClient.reset();
  EXPECT_TRUE(mServer.SeesEnd()) << "and nothing after it";
}

TEST_F(ClientBaseWorldTest, RequestsWaitWhileTheServerSpeaks) {
  static std::atomic<std::uint32_t> sNow;
  sNow = GetTicks() + 10'000;
  SetTickSource([] { return sNow.load(); });
  Place();
  EXPECT_EQ(mDisplay.Next(2), (CodesOf<PacketInternStatus, PacketCharPosition>()));
  for (const int elapsed : {110, 10}) {
    sNow += elapsed;
    FromServer(PacketDarkness());
    EXPECT_EQ(mDisplay.Next(1), CodesOf<PacketDarkness>());
  }
  mDisplay.Give(mLine);
  EXPECT_EQ(CountRequestsBefore(mLine), 0) << "the pause is over, silence is not";
}

}  // namespace
}  // namespace tolva::test
