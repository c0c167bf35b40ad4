#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "network/SocketControl.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

constexpr PacketCode kLost = PacketInternConnectionLost::kCode;
constexpr PacketCode kInfo = PacketInternConnectionInfo::kCode;
constexpr PacketCode kPing = PacketInternPing::kCode;
constexpr PacketCode kPong = PacketInternPong::kCode;
constexpr PacketCode kChat = PacketChatMsg::kCode;
constexpr PacketCode kQuit = PacketQuit::kCode;

// A socket control and its owner.
class Owner : public Correspondent {
 public:
  Owner() { SDLNet_Init(); }
  ~Owner() {
    Give(PacketInternTerminate());
    mControl.WaitThread(nullptr);
    SDLNet_Quit();
  }

  void ConnectTo(LoopbackPeer& peer) {
    Give(PacketInternConnect("127.0.0.1", peer.GetPort()));
    ASSERT_TRUE(peer.Accept());
    ASSERT_EQ(Next(1), Codes{kInfo});
  }
  // Waits for a whole pass of the control: one sends the first ping, the next one the second.
  void WaitForPass(LoopbackPeer& peer) {
    Give(PacketInternPing());
    Give(PacketInternPing());
    ASSERT_EQ(peer.Receive(32).size(), 32u);
  }
  // Expects a working stream on which nothing else has been reported or sent.
  void ExpectAlive(LoopbackPeer& peer) {
    ASSERT_TRUE(peer.Send(Record(PacketInternPing(77))));
    EXPECT_EQ(peer.Receive(16), Record(PacketInternPong(77)));
    EXPECT_EQ(Next(1), Codes{kPing});
  }

 private:
  const TempDir mDir;
  SocketControl mControl{GetTheirs()};
};

std::string Times(int count, const std::string& bytes) {
  std::string all;
  for (int i = 0; i < count; ++i) all += bytes;
  return all;
}

TEST(SocketControl, DecodesAStreamUntilItBreaksOrEnds) {
  const std::string quit = Record(PacketQuit()), chat = Record(PacketChatMsg("ann", "hello"));
  enum class Ending { Alive, Lost, PeerCloses };
  const struct {
    const char* name;
    std::vector<std::string> pieces;
    Codes reported;
    Ending ending = Ending::Alive;
  } cases[] = {
      {"closed in mid-record", {quit + chat.substr(0, 20)}, {kQuit}, Ending::PeerCloses},
      {"in pieces, and nothing is left of the stream before",
       {chat.substr(0, 1), chat.substr(1, 2), chat.substr(3, 9), chat.substr(12)},
       {kChat}},
      {"whole and half", {chat + chat + quit.substr(0, 5), quit.substr(5)}, {kChat, kChat, kQuit}},
      {"more than the buffer holds", {Times(800, chat)}, Codes(800, kChat)},
      {"broken at once", {"G"}, {}, Ending::Lost},
      {"broken after good records", {Times(40, quit) + "HTTP"}, Codes(40, kQuit), Ending::Lost},
      {"broken after a full batch", {Times(16, quit) + "HTTP"}, Codes(16, kQuit), Ending::Lost},
      {"closed after records", {Times(40, quit)}, Codes(40, kQuit), Ending::PeerCloses},
  };
  Owner owner;
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    LoopbackPeer peer;
    owner.ConnectTo(peer);
    for (std::size_t i = 0; i < test.pieces.size(); ++i) {
      if (i > 0) owner.WaitForPass(peer);  // so that each piece is read by itself
      ASSERT_TRUE(peer.Send(test.pieces[i]));
    }
    if (test.ending == Ending::PeerCloses) peer.Close();
    EXPECT_EQ(owner.Next(test.reported.size()), test.reported);
    if (test.ending == Ending::Alive) {
      owner.ExpectAlive(peer);
      peer.Close();
    }
    EXPECT_EQ(owner.Next(1), Codes{kLost});
    EXPECT_TRUE(test.ending != Ending::Lost || peer.SeesEnd());
  }
}

TEST(SocketControl, MeasuresRoundTripsFromWhenThePingIsSent) {
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  const std::uint32_t before = SDL_GetTicks();
  owner.Give(PacketInternPing(before - 90000));
  const std::string ping = peer.Receive(16);
  ASSERT_EQ(ping.size(), 16u);
  peer.Send(Record(PacketInternPong(WordAt(ping, 12) - 40)));
  const auto report = owner.Next();
  const auto* pong = PacketCast<PacketInternPong>(report.get());
  ASSERT_NE(pong, nullptr);
  EXPECT_GE(pong->mUintTick, 40u);
  EXPECT_LE(pong->mUintTick, SDL_GetTicks() - before + 40);
}

// ExpectAlive would fail after an obeyed command: the socket would be closed, or there would be another report or
// answer.
TEST(SocketControl, ObeysItsOwnerAndNoPeer) {
  LoopbackPeer peer;
  Owner owner;
  owner.GiveAsStranger(PacketInternTerminate());  // has no source, so it is not the owner's
  owner.ConnectTo(peer);
  owner.GiveAsStranger(PacketInternDisconnect());
  ASSERT_TRUE(peer.Send(FalseClaim(kPing) + FalseClaim(kPong)));  // genuine ones would be answered
  EXPECT_EQ(owner.Next(2), (Codes{kPing, kPong}));
  for (const PacketCode code : {1, 2, 3, 4, 5, 6, 7, 11, 12, 13, 14}) {  // all commands, and others of the client's own
    ASSERT_TRUE(peer.Send(FalseClaim(code) + Record(*CreatePacket(code))));
    EXPECT_EQ(owner.Next(2), (Codes{code, code}));
    Packet claim;
    claim.mEnmCode = code;
    owner.Give(claim);
  }
  owner.ExpectAlive(peer);

  owner.Give(PacketInternNewConnection());  // without a socket
  EXPECT_EQ(owner.Next(1), Codes{kLost});
  EXPECT_TRUE(peer.SeesEnd());
}

TEST(SocketControl, ReportsEachFailedConnectOnce) {
  LoopbackPeer peer;
  Owner owner;
  const std::uint16_t closedPort = LoopbackPeer().GetPort();
  const std::vector<std::pair<const char*, std::uint16_t>> hopeless = {
      {"", 80}, {"1.2.3.4.5", 80}, {"127.0.0.1", closedPort}, {"0.0.0.0", 0}, {"255.255.255.255", 0}};
  for (const auto& [host, port] : hopeless) {
    owner.Give(PacketInternConnect(host, port));
    owner.Give(PacketChatMsg("ann", "dropped"));
    EXPECT_EQ(owner.Next(1), Codes{kLost}) << host << ':' << port;
  }
  owner.ConnectTo(peer);
  owner.ExpectAlive(peer);
}

TEST(SocketControl, AsAServerListensAndHandsItsCallersOn) {
  const PacketInternListen listen(LoopbackPeer().GetPort());  // the port is free again
  Owner listener, adopter;
  listener.Give(listen);
  ASSERT_EQ(listener.Next(1), Codes{kInfo});
  listener.Give(PacketChatMsg("ann", "there is nobody to send this to"));
  for (int caller = 0; caller < 2; ++caller) {
    LoopbackPeer peer;
    ASSERT_TRUE(peer.Connect(listen.mUintPort));
    adopter.Give(listener.Next());
    ASSERT_EQ(adopter.Next(1), Codes{kInfo});
    adopter.ExpectAlive(peer);
    adopter.Give(PacketInternDisconnect());
    EXPECT_TRUE(peer.SeesEnd());
  }
}

// Sending to a peer that has gone fails while its last records still wait to be decoded, and must not raise SIGPIPE.
TEST(SocketControl, ReadsNoMoreOfAFloodThanItsOwnerTakesAndDeliversAllOfItBeforeTheLoss) {
  constexpr std::uint32_t kCount = 2000;
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  std::string flood;
  PacketInternResend numbered;
  for (numbered.mUintResendFrom = 0; numbered.mUintResendFrom < kCount; ++numbered.mUintResendFrom) {
    flood += Record(numbered);
  }
  ASSERT_TRUE(peer.Send(flood));
  ASSERT_TRUE(WaitUntil([&] { return owner.GetWaitingCount() > kSocketHighWater; }));
  for (int i = 0; i < 10; ++i) owner.WaitForPass(peer);  // its own pings go on
  EXPECT_LE(owner.GetWaitingCount(), kSocketHighWater + 16);

  peer.Close();
  for (int i = 0; i < 5; ++i) owner.Give(PacketChatMsg("ann", "anybody there?"));
  for (std::uint32_t i = 0; i < kCount; ++i) {
    const auto report = owner.Next();
    const auto* resend = PacketCast<PacketInternResend>(report.get());
    ASSERT_NE(resend, nullptr);
    ASSERT_EQ(resend->mUintResendFrom, i);
  }
  EXPECT_EQ(owner.Next(1), Codes{kLost});
}

}  // namespace
}  // namespace tolva::test
