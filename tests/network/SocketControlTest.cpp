#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "foundation/ByteOrder.h"
#include "network/SocketControl.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

using Codes = std::vector<PacketCode>;
constexpr PacketCode kLost = PacketInternConnectionLost::kCode;
constexpr PacketCode kInfo = PacketInternConnectionInfo::kCode;
constexpr PacketCode kPing = PacketInternPing::kCode;

// The owner of a socket control.
class Owner : public Correspondent {
 public:
  ~Owner() {
    Give(PacketInternTerminate());
    mControl.WaitThread(nullptr);
  }

  void ConnectTo(LoopbackPeer& peer) {
    Give(PacketInternConnect("127.0.0.1", peer.GetPort()));
    ASSERT_TRUE(peer.Accept());
    ASSERT_EQ(Next(1), Codes{kInfo});
  }
  // Waits until the control has gone through a whole pass: the second of two pings leaves at the end of one.
  void WaitForPass(LoopbackPeer& peer) {
    Give(PacketInternPing());
    Give(PacketInternPing());
    ASSERT_EQ(peer.Receive(32).size(), 32u);
  }
  // Shows that the stream works and that nothing else was reported or sent before.
  void ExpectAlive(LoopbackPeer& peer) {
    ASSERT_TRUE(peer.Send(Record(PacketInternPing(77))));
    EXPECT_EQ(peer.Receive(16), Record(PacketInternPong(77)));
    EXPECT_EQ(Next(1), Codes{kPing});
  }

 private:
  struct Network {
    Network() { SDLNet_Init(); }
    ~Network() { SDLNet_Quit(); }
  };
  const TempDir mDir;
  const Network mNetwork;
  SocketControl mControl{GetTheirs()};
};

enum class Ending { Alive, Lost, PeerCloses };
struct StreamCase {
  const char* name;
  std::vector<std::string> pieces;
  Codes reported;
  Ending ending = Ending::Alive;
};

std::ostream& operator<<(std::ostream& stream, const StreamCase& c) { return stream << c.name; }

class Stream : public testing::TestWithParam<StreamCase> {};

TEST_P(Stream, IsCutIntoItsRecords) {
  const StreamCase& c = GetParam();
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  for (std::size_t i = 0; i < c.pieces.size(); ++i) {
    if (i > 0) owner.WaitForPass(peer);  // or two pieces would arrive as one
    ASSERT_TRUE(peer.Send(c.pieces[i]));
  }
  if (c.ending == Ending::PeerCloses) peer.Close();
  EXPECT_EQ(owner.Next(c.reported.size()), c.reported);
  if (c.ending == Ending::Alive) return owner.ExpectAlive(peer);
  EXPECT_EQ(owner.Next(1), Codes{kLost});
  EXPECT_TRUE(c.ending == Ending::PeerCloses || peer.SeesEnd());
  // Nothing of the broken stream is left: the next one starts clean.
  owner.ConnectTo(peer);
  owner.ExpectAlive(peer);
}

std::string Times(int count, const std::string& bytes) {
  std::string all;
  for (int i = 0; i < count; ++i) all += bytes;
  return all;
}

const std::string kQuit = Record(PacketQuit());
const std::string kChat = Record(PacketChatMsg("ann", "hello"));
const std::string kBadText = ForgedRecord(400, 24, std::string("\xff\xff\xff\xff", 4) + std::string(8, 'a'));

INSTANTIATE_TEST_SUITE_P(
    Network, Stream,
    testing::Values(
        StreamCase{"InPieces", {kChat.substr(0, 1), kChat.substr(1, 2), kChat.substr(3, 9), kChat.substr(12)}, {400}},
        StreamCase{"WholeAndHalf", {kChat + kChat + kQuit.substr(0, 5), kQuit.substr(5)}, {400, 400, 500}},
        StreamCase{"FortyAtOnce", {Times(40, kChat)}, Codes(40, 400)},
        StreamCase{"MoreThanTheBuffer", {Times(800, kChat)}, Codes(800, 400)},
        StreamCase{"UnknownCode", {ForgedRecord(405, 12)}, {0}},
        StreamCase{"WrongMagicAtOnce", {"G"}, {}, Ending::Lost},
        StreamCase{"WrongMagicAfterGood", {Times(40, kQuit) + "HTTP"}, Codes(40, 500), Ending::Lost},
        StreamCase{"TooShort", {kQuit + ForgedRecord(500, 11)}, {500}, Ending::Lost},
        StreamCase{"TooLong", {kQuit + ForgedRecord(500, 16385)}, {500}, Ending::Lost},
        StreamCase{"HugeLength", {ForgedRecord(700, 0xFFFFFFFF)}, {}, Ending::Lost},
        StreamCase{"BadText", {Times(16, kQuit) + kBadText}, Codes(16, 500), Ending::Lost},
        StreamCase{"ClosedBehindRecords", {Times(40, kQuit)}, Codes(40, 500), Ending::PeerCloses},
        StreamCase{"ClosedInMidRecord", {kQuit + kChat.substr(0, 20)}, {500}, Ending::PeerCloses}),
    [](const auto& stream) { return stream.param.name; });

TEST(SocketControl, MeasuresRoundTripsFromTheSendingOfThePing) {
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  const std::uint32_t before = SDL_GetTicks();
  owner.Give(PacketInternPing(before - 90000));
  const std::string ping = peer.Receive(16);
  ASSERT_EQ(ping.size(), 16u);
  peer.Send(Record(PacketInternPong(LoadBig32(reinterpret_cast<const std::uint8_t*>(ping.data()) + 12) - 40)));
  const auto report = owner.Next();
  const auto* pong = PacketCast<PacketInternPong>(report.get());
  ASSERT_NE(pong, nullptr);
  EXPECT_GE(pong->mUintTick, 40u);
  EXPECT_LE(pong->mUintTick, SDL_GetTicks() - before + 40);
}

// Obeying would show in ExpectAlive: as a closed socket, another report or an answer.
TEST(SocketControl, ObeysItsOwnerAndNoPeer) {
  LoopbackPeer peer;
  Owner owner;
  owner.GiveAsStranger(PacketInternTerminate());  // no source: neither obeyed nor taken for the owner
  owner.ConnectTo(peer);
  owner.GiveAsStranger(PacketInternDisconnect());
  ASSERT_TRUE(peer.Send(FalseClaim(8) + FalseClaim(9)));  // the true ones are answered
  EXPECT_EQ(owner.Next(2), (Codes{8, 9}));
  for (const PacketCode code : {1, 2, 3, 4, 5, 6, 7, 11, 12, 13, 14}) {
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
  PacketInternListen listen;
  listen.mUintPort = LoopbackPeer().GetPort();  // free again
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

// Sending to a peer that has gone fails while its last records still wait to be cut, and must not raise SIGPIPE.
TEST(SocketControl, LeavesAFloodWithThePeerAndDeliversAllOfItBeforeTheLoss) {
  constexpr std::uint32_t kCount = 2000;
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  std::string flood;
  PacketInternResend numbered;
  for (; numbered.mUintResendFrom < kCount; ++numbered.mUintResendFrom) flood += Record(numbered);
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
