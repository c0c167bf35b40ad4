#include <algorithm>
#include <atomic>
#include <filesystem>

#include "client/ControllerFixture.h"

namespace tolva::test {
namespace {

constexpr PacketCode kPing = PacketInternPing::kCode;
constexpr PacketCode kQuit = PacketQuit::kCode;

template <typename... Packets>
Codes CodesOfAll(TypeList<Packets...>) {
  return CodesOf<Packets...>();
}
Codes AllCodesBut(const Codes& leftOut) {
  Codes codes = CodesOfAll(AllPackets{});
  std::erase_if(codes, [&](PacketCode code) { return std::ranges::count(leftOut, code) > 0; });
  return codes;
}

bool LogHas(const std::string& text) { return ReadFile("log.clf").find(text) != std::string::npos; }

class ClientBaseTest : public ControllerFixture {
 protected:
  // The codes of the next records at the server. Skips pings, which come whenever they are due.
  Codes ServerGets(std::size_t count, PacketCode skipped = kPing) {
    Codes codes;
    while (codes.size() < count && ReceiveRecord()) {
      if (GetRecordCode() != skipped) codes.push_back(GetRecordCode());
    }
    return codes;
  }
  static bool PlaysTheTune() {
    return WaitUntil([] { return ReadFile("Sound.tmp") == ReadFile(TOLVA_TEST_MUSIC); });
  }
};

TEST_F(ClientBaseTest, ServerGetsWhatTheDisplayAsksAndNothingElse) {
  Connect();
  PacketLoginRequest stamped;
  static_cast<VersionNumbers&>(stamped) = {0, 6, 23};
  EXPECT_EQ(mRecord, Record(stamped));

  for (const PacketCode code : AllCodesBut({})) {
    Packet claim;
    claim.mEnmCode = code;
    mDisplay.Give(claim);
  }
  for (const PacketCode code : AllCodesBut({kQuit, PacketLoginRequest::kCode})) mDisplay.Give(CreatePacket(code));
  mDisplay.Give(PacketChatMsg());
  const Codes wanted = CodesOf<PacketChatMsg, PacketEnterChatRequest, PacketEnterGameRequest, PacketMoveRequest,
                               PacketChatMsg, PacketServerInfo>();
  EXPECT_EQ(ServerGets(wanted.size()), wanted) << "the question for the version can wait";
  mDisplay.Give(PacketMusicPlay(kLobbyMusic));
  EXPECT_TRUE(PlaysTheTune());
}

TEST_F(ClientBaseTest, DisplayGetsWhatItCanUseFromTheServer) {
  Connect();
  for (const PacketCode code : AllCodesBut({})) mServer.Send(FalseClaim(code));
  // A placement sets off requests to the server; the world's tests look at it.
  for (const PacketCode code : AllCodesBut({kQuit, PacketCharPosition::kCode})) FromServer(*CreatePacket(code));
  FromServer(PacketQuit());
  const Codes wanted =
      CodesOf<PacketInternConnectionLost, PacketInternPong, PacketLoginDeny, PacketChatMsg, PacketChatUsers,
              PacketEnterChatAccept, PacketUserInGame, PacketServerInfo, PacketAreaGround, PacketAreaVolu,
              PacketEnterGameRequest, PacketEnterGameAccept, PacketGameChatMsg, PacketMove, PacketAddChar,
              PacketRemoveChar, PacketDarkness, PacketQuit>();
  EXPECT_EQ(mDisplay.Next(wanted.size()), wanted);
}

TEST_F(ClientBaseTest, LobbyAndWorldChangeTheStateAndTheLobbyPlaysItsMusic) {
  Connect();
  FromServer(PacketEnterChatAccept());
  EXPECT_EQ(mDisplay.Next(1), CodesOf<PacketEnterChatAccept>());
  EXPECT_TRUE(LogHas("004 ClientBase            Changed state to eClientStateInChat\n"));
  EXPECT_TRUE(PlaysTheTune());
  FromServer(PacketEnterGameAccept());
  EXPECT_EQ(mDisplay.Next(1), CodesOf<PacketEnterGameAccept>());
  EXPECT_TRUE(LogHas("Changed state to eClientStateInGame\n"));
}

TEST_F(ClientBaseTest, OnlyAnAnnouncedDisplayIsObeyed) {
  mDisplay.GiveAsStranger(PacketQuit());                         // has no source, as the announcement will have none
  mDisplay.GiveAsStranger(PacketInternCentralMailbox(nullptr));  // announces nobody
  mDisplay.GiveAsStranger(PacketQuit());
  mDisplay.Give(PacketQuit());
  Announce();
  Mailbox second;
  mDisplay.GiveAsStranger(PacketInternCentralMailbox(&second));
  EXPECT_TRUE(WaitUntil([&] { return second.GetCount() == 1; }));
  Announce();
  EXPECT_FALSE(LogHas("returned"));
}

TEST_F(ClientBaseTest, ADisplayThatFallsBehindBoundsTheMailAndPingsGoOn) {
  Connect();
  constexpr int kFlood = 700;
  for (int i = 0; i < kFlood; ++i) FromServer(PacketDarkness());
  ASSERT_TRUE(WaitUntil([&] { return mDisplay.GetWaitingCount() > kMailboxHighWater; }));
  EXPECT_EQ(ServerGets(2, kQuit), (Codes{kPing, kPing}));
  EXPECT_EQ(mDisplay.GetWaitingCount(), kMailboxHighWater + 1);
  EXPECT_LE(mDisplay.GetTheirs()->GetCount(), kMailboxHighWater);
  EXPECT_EQ(mDisplay.Next(kFlood), Codes(kFlood, PacketDarkness::kCode));
}

TEST_F(ClientBaseTest, PingsWhenMoreThan2500MillisecondsHavePassed) {
  static std::atomic<Uint32> sNow;
  Connect();
  sNow = GetTicks() + 10'000;
  SetTickSource([] { return sNow.load(); });
  EXPECT_EQ(ServerGets(1, kQuit), Codes{kPing}) << "the clock was set forward";
  sNow += 2500;
  for (int i = 0; i < 2; ++i) {
    mDisplay.Give(PacketChatMsg());
    EXPECT_EQ(ServerGets(1, kQuit), CodesOf<PacketChatMsg>()) << "not yet";
  }
  ++sNow;
  EXPECT_EQ(ServerGets(1, kQuit), Codes{kPing});
}

TEST_F(ClientBaseTest, QuitOfTheServerSendsWhatWasSaidAndEndsTheMusic) {
  Connect();
  FromServer(PacketEnterChatAccept());
  EXPECT_TRUE(PlaysTheTune());
  EXPECT_EQ(mDisplay.Next(1), CodesOf<PacketEnterChatAccept>());
  for (int i = 0; i < 3; ++i) mDisplay.Give(PacketChatMsg());
  const Uint32 start = GetTicks();
  FromServer(PacketQuit());
  EXPECT_EQ(mDisplay.Next(1), Codes{kQuit});
  EXPECT_GE(GetTicks() - start, 200u) << "the lines are sent with their pauses";
  EXPECT_FALSE(std::filesystem::exists("Sound.tmp"));
  mClient->WaitThread(nullptr);
  const std::string log = ReadFile("log.clf");
  const auto left = log.find("Changed state to eClientStateInChat");
  EXPECT_NE(log.find("Changed state to eClientStateNotConnected", left), std::string::npos);
}

TEST_F(ClientBaseTest, QuitOfTheDisplayEndsTheThreadsInOrderAlsoWithAServerThatNeverAnswers) {
  Announce();
  mDisplay.Give(PacketLoginRequest());
  Quit();
  EXPECT_EQ(mDisplay.Next(1), Codes{kQuit});
  const std::string log = ReadFile("log.clf");
  const auto sound = log.find("004 ClientBase            Thread SoundManager returned\n");
  EXPECT_LT(log.find("004 ClientBase            Thread ServerInstance returned\n"), sound);
  EXPECT_NE(sound, std::string::npos);
}

}  // namespace
}  // namespace tolva::test
