#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "client/ClientBase.h"
#include "client/FakeServer.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

using Codes = std::vector<PacketCode>;

// Calls `visit` with a new packet of every class but those of the codes left out.
template <typename Visit, typename... Packets>
void ForEachPacket(const Codes& leftOut, Visit&& visit, TypeList<Packets...>) {
  for (const PacketCode code : {Packets::kCode...}) {
    if (std::find(leftOut.begin(), leftOut.end(), code) == leftOut.end()) visit(CreatePacket(code));
  }
}

bool Eventually(const std::function<bool()>& condition) {
  for (const std::uint32_t begin = SDL_GetTicks(); SDL_GetTicks() - begin < 10000; SDL_Delay(2)) {
    if (condition()) return true;
  }
  return false;
}

// The controller between a server at the other end of a socket and a display of which there is only the mailbox.
class ClientBaseTest : public ::testing::Test {
 protected:
  ClientBaseTest() {
    WriteFile("client.ini", mServer.GetIni());
    WriteFile("Sounds.cci", std::string("\1\0\0\0\0\0\0\0\4\0\0\0", 12));
    WriteFile("Sounds.cca", "tune");
    mClient = std::make_unique<ClientBase>(&mControllerMailbox);
  }
  ~ClientBaseTest() override {
    if (!mHasQuit) Quit();
  }

  void Announce() {
    mControllerMailbox.Put(new PacketInternCentralMailbox(&mDisplayMailbox));
    EXPECT_TRUE(PacketCast<PacketInternRepository>(DisplayMail().get()));
  }
  void Connect() {
    Announce();
    FromDisplay(std::make_unique<PacketLoginRequest>());
    mServer.Accept();
    mLogin = mServer.Receive();
  }
  void FromDisplay(std::unique_ptr<Packet> packet) {
    packet->mObjSource = &mDisplayMailbox;
    mControllerMailbox.Put(packet.release());
  }
  std::unique_ptr<Packet> DisplayMail() {
    std::unique_ptr<Packet> packet;
    EXPECT_TRUE(Eventually([&] { return (packet.reset(mDisplayMailbox.Get()), packet != nullptr); })) << "no mail";
    return packet ? std::move(packet) : std::make_unique<Packet>();
  }
  // The codes that arrive before the given one, pings left out.
  static Codes CodesUntil(PacketCode last, const std::function<std::unique_ptr<Packet>()>& receive) {
    Codes codes;
    for (;;) {
      const PacketCode code = receive()->mEnmCode;
      if (code == last || codes.size() > 100) return codes;
      if (code != PacketInternPing::kCode) codes.push_back(code);
    }
  }
  Codes DisplayCodesUntil(PacketCode last) {
    return CodesUntil(last, [&] { return DisplayMail(); });
  }
  void Quit() {
    mHasQuit = true;
    FromDisplay(std::make_unique<PacketQuit>());
    mClient->WaitThread(nullptr);
  }
  static bool LogHas(const std::string& text) { return ReadFile("log.clf").find(text) != std::string::npos; }

  TempDir mDir;
  FakeServer mServer;
  Mailbox mControllerMailbox;
  Mailbox mDisplayMailbox;
  std::unique_ptr<ClientBase> mClient;
  std::unique_ptr<Packet> mLogin;
  bool mHasQuit = false;
};

TEST_F(ClientBaseTest, ServerGetsWhatTheDisplayAsksAndNothingElse) {
  Connect();
  const auto* login = PacketCast<PacketLoginRequest>(mLogin.get());
  ASSERT_NE(login, nullptr);
  EXPECT_EQ(std::tuple(login->mUintVersionMajor, login->mUintVersionMinor, login->mUintVersionBugfix),
            std::tuple(0, 6, 23));

  const Codes left = {PacketQuit::kCode, PacketLoginRequest::kCode, PacketMoveRequest::kCode};
  ForEachPacket(
      left, [&](auto packet) { FromDisplay(std::move(packet)); }, AllPackets{});
  FromDisplay(std::make_unique<PacketMoveRequest>());
  EXPECT_EQ(CodesUntil(PacketMoveRequest::kCode, [&] { return mServer.Receive(); }), (Codes{400, 402, 600, 800}));
  FromDisplay(std::make_unique<PacketMusicPlay>(std::uint16_t{1}));
  EXPECT_TRUE(Eventually([&] { return ReadFile("Sound.tmp") == "tune"; }));
}

TEST_F(ClientBaseTest, DisplayGetsWhatItCanUseFromTheServer) {
  Connect();
  ForEachPacket(
      {PacketQuit::kCode, PacketDarkness::kCode, PacketCharPosition::kCode},
      [&](auto packet) { mServer.Send(*packet); }, AllPackets{});
  mServer.Send(PacketDarkness());
  EXPECT_EQ(DisplayCodesUntil(PacketDarkness::kCode),
            (Codes{5, 9, 202, 400, 401, 403, 406, 600, 700, 701, 800, 801, 820, 851, 871, 872}));
}

TEST_F(ClientBaseTest, LobbyAndWorldChangeTheStateAndTheLobbyPlaysItsMusic) {
  Connect();
  mServer.Send(PacketEnterChatAccept());
  const auto accept = DisplayMail();
  EXPECT_EQ(accept->mObjSource, &mControllerMailbox);
  EXPECT_TRUE(LogHas("004 ClientBase            Changed state to eClientStateInChat\n"));
  EXPECT_TRUE(Eventually([&] { return ReadFile("Sound.tmp") == "tune"; }));
  mServer.Send(PacketEnterGameAccept());
  DisplayMail();
  EXPECT_TRUE(LogHas("Changed state to eClientStateInGame\n"));
}

TEST_F(ClientBaseTest, PacketsThatClaimAnotherClassAreDropped) {
  Connect();
  ForEachPacket(
      {}, [&](auto packet) { mServer.SendClaim(packet->mEnmCode); }, AllPackets{});
  ForEachPacket(
      {},
      [&](auto packet) {
        auto claim = std::make_unique<Packet>();
        claim->mEnmCode = packet->mEnmCode;
        FromDisplay(std::move(claim));
      },
      AllPackets{});
  mServer.Send(PacketDarkness());
  EXPECT_EQ(DisplayCodesUntil(PacketDarkness::kCode), Codes{});
  FromDisplay(std::make_unique<PacketMoveRequest>());
  EXPECT_EQ(CodesUntil(PacketMoveRequest::kCode, [&] { return mServer.Receive(); }), Codes{});
  EXPECT_FALSE(LogHas("eClientStateInChat"));
}

TEST_F(ClientBaseTest, OnlyAnAnnouncedDisplayIsObeyed) {
  mControllerMailbox.Put(new PacketQuit);                           // from nobody, as the announcement will be
  mControllerMailbox.Put(new PacketInternCentralMailbox(nullptr));  // announces nobody
  mControllerMailbox.Put(new PacketQuit);
  FromDisplay(std::make_unique<PacketQuit>());
  Announce();
  Mailbox second;
  mControllerMailbox.Put(new PacketInternCentralMailbox(&second));
  EXPECT_TRUE(Eventually([&] { return second.GetCount() == 1; }));
  Announce();
  EXPECT_FALSE(LogHas("returned"));
}

TEST_F(ClientBaseTest, ADisplayThatFallsBehindBoundsTheMailAndPingsGoOn) {
  Connect();
  constexpr int kFlood = 700;
  std::vector<std::uint32_t> arrivals;
  for (int i = 0; i < kFlood; ++i) mServer.Send(PacketDarkness());
  while (arrivals.size() < 2) {
    if (PacketCast<PacketInternPing>(mServer.Receive().get())) arrivals.push_back(SDL_GetTicks());
  }
  EXPECT_NEAR(arrivals[1] - arrivals[0], 2510, 100);
  EXPECT_EQ(mDisplayMailbox.GetCount(), kMailboxHighWater + 1);
  EXPECT_LE(mControllerMailbox.GetCount(), kMailboxHighWater + 1);
  for (int i = 0; i < kFlood; ++i) EXPECT_EQ(DisplayMail()->mEnmCode, PacketDarkness::kCode);
}

TEST_F(ClientBaseTest, QuitEndsTheThreadsInOrderWhoeverWantsIt) {
  Connect();
  mServer.Send(PacketQuit());
  mClient->WaitThread(nullptr);
  mHasQuit = true;
  EXPECT_EQ(DisplayMail()->mEnmCode, PacketQuit::kCode);
  const std::string log = ReadFile("log.clf");
  const auto server = log.find("004 ClientBase            Thread ServerInstance returned\n");
  const auto sound = log.find("004 ClientBase            Thread SoundManager returned\n");
  EXPECT_LT(server, sound);
  EXPECT_NE(sound, std::string::npos);
  EXPECT_GT(log.rfind("eClientStateNotConnected"), log.find("eClientStateNotConnected"));
}

TEST_F(ClientBaseTest, QuitIsQuickWhileNobodyAnswers) {
  Announce();
  FromDisplay(std::make_unique<PacketLoginRequest>());
  const std::uint32_t begin = SDL_GetTicks();
  Quit();
  EXPECT_LT(SDL_GetTicks() - begin, 1000U);
  EXPECT_EQ(DisplayMail()->mEnmCode, PacketQuit::kCode);
}

}  // namespace
}  // namespace tolva::test
