#include <algorithm>
#include <atomic>
#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

#include "client/ClientBase.h"
#include "foundation/ByteOrder.h"
#include "foundation/Ticks.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"

namespace tolva::test {
namespace {

constexpr PacketCode kPing = PacketInternPing::kCode;
constexpr PacketCode kQuit = PacketQuit::kCode;
constexpr PacketCode kRepository = PacketInternRepository::kCode;

// The codes of all packet classes but those left out.
template <typename... Packets>
Codes CodesWithout(const Codes& leftOut, TypeList<Packets...>) {
  Codes codes = {Packets::kCode...};
  std::erase_if(codes, [&](PacketCode code) { return std::ranges::count(leftOut, code) > 0; });
  return codes;
}

bool LogHas(const std::string& text) { return ReadFile("log.clf").find(text) != std::string::npos; }

// The controller between a server at the other end of a socket and a display of which there is only the mailbox.
class ClientBaseTest : public ::testing::Test {
 protected:
  ClientBaseTest() {
    WriteFile("client.ini", "[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(mServer.GetPort()) + "\n");
    WriteArchive("Sounds", 1, ReadFile(TOLVA_TEST_MUSIC));
    mClient = std::make_unique<ClientBase>(mDisplay.GetTheirs());
  }
  ~ClientBaseTest() override { Quit(); }

  void Announce() {
    mDisplay.GiveAsStranger(PacketInternCentralMailbox(mDisplay.GetOwn()));
    EXPECT_EQ(mDisplay.Next(1), Codes{kRepository});
  }
  void Connect() {
    Announce();
    mDisplay.Give(PacketLoginRequest());
    EXPECT_TRUE(mServer.Accept());
    EXPECT_EQ(ServerGets(1), Codes{PacketLoginRequest::kCode});
  }
  void FromServer(const Packet& packet) { EXPECT_TRUE(mServer.Send(Record(packet))); }
  // The codes of the next so many records at the server, without those to skip: pings come when they are due.
  Codes ServerGets(std::size_t count, PacketCode skipped = kPing) {
    Codes codes;
    while (codes.size() < count) {
      mRecord = mServer.Receive(kHeaderSize);
      if (mRecord.size() < kHeaderSize) break;
      const auto* header = reinterpret_cast<const std::uint8_t*>(mRecord.data());
      const PacketCode code = LoadBig32(header + 4);
      mRecord += mServer.Receive(LoadBig32(header + 8) - kHeaderSize);
      if (code != skipped) codes.push_back(code);
    }
    return codes;
  }
  static bool PlaysTheTune() {
    return WaitUntil([] { return ReadFile("Sound.tmp") == ReadFile(TOLVA_TEST_MUSIC); });
  }
  void Quit() {
    mDisplay.Give(PacketQuit());
    mClient->WaitThread(nullptr);
  }
  void ExpectOrderlyEnd() {
    EXPECT_EQ(mDisplay.Next(1), Codes{kQuit});
    const std::string log = ReadFile("log.clf");
    const auto sound = log.find("004 ClientBase            Thread SoundManager returned\n");
    EXPECT_LT(log.find("004 ClientBase            Thread ServerInstance returned\n"), sound);
    EXPECT_NE(sound, std::string::npos);
  }

  const TempDir mDir;
  LoopbackPeer mServer;
  Correspondent mDisplay;
  std::unique_ptr<ClientBase> mClient;
  std::string mRecord;  // the last one at the server
};

TEST_F(ClientBaseTest, ServerGetsWhatTheDisplayAsksAndNothingElse) {
  Connect();
  PacketLoginRequest stamped;
  stamped.mUintVersionMinor = 6;
  stamped.mUintVersionBugfix = 23;
  EXPECT_EQ(mRecord, Record(stamped));

  for (const PacketCode code : CodesWithout({}, AllPackets{})) {
    Packet claim;
    claim.mEnmCode = code;
    mDisplay.Give(claim);
  }
  for (const PacketCode code : CodesWithout({kQuit, PacketLoginRequest::kCode}, AllPackets{})) {
    mDisplay.Give(CreatePacket(code));
  }
  mDisplay.Give(PacketChatMsg());
  EXPECT_EQ(ServerGets(6), (Codes{400, 402, 800, 850, 400, 600})) << "the question for the version can wait";
  mDisplay.Give(PacketMusicPlay(1));
  EXPECT_TRUE(PlaysTheTune());
}

TEST_F(ClientBaseTest, DisplayGetsWhatItCanUseFromTheServer) {
  Connect();
  for (const PacketCode code : CodesWithout({}, AllPackets{})) mServer.Send(FalseClaim(code));
  // A placement sets off requests to the server; the world's tests look at it.
  const Codes left = {kQuit, PacketCharPosition::kCode};
  for (const PacketCode code : CodesWithout(left, AllPackets{})) FromServer(*CreatePacket(code));
  FromServer(PacketQuit());
  EXPECT_EQ(mDisplay.Next(18),
            (Codes{5, 9, 202, 400, 401, 403, 406, 600, 700, 701, 800, 801, 820, 851, 871, 872, 900, kQuit}));
}

TEST_F(ClientBaseTest, LobbyAndWorldChangeTheStateAndTheLobbyPlaysItsMusic) {
  Connect();
  FromServer(PacketEnterChatAccept());
  EXPECT_EQ(mDisplay.Next(1), Codes{PacketEnterChatAccept::kCode});
  EXPECT_TRUE(LogHas("004 ClientBase            Changed state to eClientStateInChat\n"));
  EXPECT_TRUE(PlaysTheTune());
  FromServer(PacketEnterGameAccept());
  EXPECT_EQ(mDisplay.Next(1), Codes{PacketEnterGameAccept::kCode});
  EXPECT_TRUE(LogHas("Changed state to eClientStateInGame\n"));
}

TEST_F(ClientBaseTest, OnlyAnAnnouncedDisplayIsObeyed) {
  mDisplay.GiveAsStranger(PacketQuit());                         // from nobody, as the announcement will be
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
  EXPECT_EQ(ServerGets(1, kQuit), Codes{kPing}) << "the clock was set on";
  sNow += 2500;
  for (int i = 0; i < 2; ++i) {
    mDisplay.Give(PacketChatMsg());
    EXPECT_EQ(ServerGets(1, kQuit), Codes{PacketChatMsg::kCode}) << "not yet";
  }
  ++sNow;
  EXPECT_EQ(ServerGets(1, kQuit), Codes{kPing});
  SetTickSource(nullptr);
}

TEST_F(ClientBaseTest, QuitOfTheServerEndsTheThreadsInOrder) {
  Connect();
  FromServer(PacketEnterChatAccept());
  EXPECT_TRUE(PlaysTheTune());
  EXPECT_EQ(mDisplay.Next(1), Codes{PacketEnterChatAccept::kCode});
  for (int i = 0; i < 3; ++i) mDisplay.Give(PacketChatMsg());
  const Uint32 start = GetTicks();
  FromServer(PacketQuit());
  EXPECT_EQ(mDisplay.Next(1), Codes{kQuit});
  EXPECT_GE(GetTicks() - start, 200u) << "what was said before is sent, with its pauses";
  EXPECT_FALSE(std::filesystem::exists("Sound.tmp")) << "the music has ended";
  mClient->WaitThread(nullptr);
  const std::string log = ReadFile("log.clf");
  const auto left = log.find("Changed state to eClientStateInChat");
  EXPECT_NE(log.find("Changed state to eClientStateNotConnected", left), std::string::npos);
}

TEST_F(ClientBaseTest, QuitOfTheDisplayDoesNotWaitForAServerThatNeverAnswers) {
  Announce();
  mDisplay.Give(PacketLoginRequest());
  Quit();
  ExpectOrderlyEnd();
}

}  // namespace
}  // namespace tolva::test
