#include <deque>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "network/SocketControl.h"
#include "protocol/PacketList.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

using Codes = std::vector<PacketCode>;
constexpr PacketCode kLost = PacketInternConnectionLost::kCode;
constexpr PacketCode kInfo = PacketInternConnectionInfo::kCode;
constexpr PacketCode kPing = PacketInternPing::kCode;
constexpr PacketCode kPong = PacketInternPong::kCode;
constexpr PacketCode kChat = PacketChatMsg::kCode;

std::string Times(int count, const std::string& bytes) {
  std::string all;
  for (int i = 0; i < count; ++i) all += bytes;
  return all;
}

// A socket control and the owner's side of its two mailboxes.
class Owner {
 public:
  Owner() : mControl(&mOutgoing) {}
  ~Owner() {
    Give(new PacketInternTerminate);
    mControl.WaitThread(nullptr);
  }

  void Give(Packet* packet) {
    packet->mObjSource = &mIncoming;
    mOutgoing.Put(packet);
  }
  void GiveAsStranger(Packet* packet) { mOutgoing.Put(packet); }

  std::unique_ptr<Packet> Next() {
    std::unique_ptr<Packet> packet;
    WaitUntil([&] { return (packet.reset(mIncoming.Get()), packet != nullptr); });
    return packet;
  }
  // The codes of the next so many reports.
  Codes Next(std::size_t count) {
    Codes codes;
    while (codes.size() < count) {
      const auto packet = Next();
      if (packet == nullptr) break;
      codes.push_back(packet->mEnmCode);
    }
    return codes;
  }
  std::uint32_t GetWaitingCount() { return mIncoming.GetCount(); }

  void ConnectTo(LoopbackPeer& peer) {
    Give(new PacketInternConnect("127.0.0.1", peer.GetPort()));
    ASSERT_TRUE(peer.Accept());
    ASSERT_EQ(Next(1), Codes{kInfo});
  }
  // Waits until the control has gone through a whole pass: the second of two pings leaves at the end of one.
  void WaitForPass(LoopbackPeer& peer) {
    for (int i = 0; i < 2; ++i) {
      Give(new PacketInternPing);
      ASSERT_EQ(peer.Receive(16).size(), 16u);
    }
  }

 private:
  Mailbox mIncoming;
  Mailbox mOutgoing;
  SocketControl mControl;
};

class SocketControlTest : public testing::Test {
 protected:
  SocketControlTest() { SDLNet_Init(); }
  ~SocketControlTest() override { SDLNet_Quit(); }

  // Shows that the stream still works and that nothing else was reported or sent before.
  static void ExpectAlive(Owner& owner, LoopbackPeer& peer) {
    ASSERT_TRUE(peer.Send(Record(PacketInternPing(77))));
    EXPECT_EQ(peer.Receive(16), Record(PacketInternPong(77)));
    EXPECT_EQ(owner.Next(1), Codes{kPing});
  }

  TempDir mDir;
};

enum class Ending { Alive, Lost, PeerCloses };
struct StreamCase {
  const char* name;
  std::vector<std::string> pieces;
  Codes reported;
  Ending ending = Ending::Alive;
};

std::ostream& operator<<(std::ostream& stream, const StreamCase& c) { return stream << c.name; }

class Stream : public SocketControlTest, public testing::WithParamInterface<StreamCase> {};

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
  if (c.ending == Ending::Alive) return ExpectAlive(owner, peer);
  EXPECT_EQ(owner.Next(1), Codes{kLost});
  EXPECT_TRUE(c.ending == Ending::PeerCloses || peer.SeesEnd());
  // Nothing of the broken stream is left: the next one starts clean.
  owner.ConnectTo(peer);
  ExpectAlive(owner, peer);
}

const std::string kQuitRecord = Record(PacketQuit());
const std::string kChatRecord = Record(PacketChatMsg("ann", "hello"));
const std::string kBadText = ForgedRecord(kChat, 24, std::string("\xff\xff\xff\xff", 4) + std::string(8, 'a'));

INSTANTIATE_TEST_SUITE_P(
    Network, Stream,
    testing::Values(
        StreamCase{"TwoPieces", {kChatRecord.substr(0, 7), kChatRecord.substr(7)}, {400}},
        StreamCase{"MagicInPieces", {kChatRecord.substr(0, 1), kChatRecord.substr(1, 2), kChatRecord.substr(3)}, {400}},
        StreamCase{
            "WholeAndHalf", {Times(2, kChatRecord) + kQuitRecord.substr(0, 5), kQuitRecord.substr(5)}, {400, 400, 500}},
        StreamCase{"MoreThanOneBatch",
                   {Times(40, kChatRecord) + kQuitRecord},
                   [] {
                     Codes codes(40, 400);
                     codes.push_back(500);
                     return codes;
                   }()},
        StreamCase{"ExactlyOneBatch", {Times(16, kQuitRecord)}, Codes(16, 500)},
        StreamCase{"MoreThanTheBuffer", {Times(800, kChatRecord)}, Codes(800, 400)},
        StreamCase{"UnknownCode", {ForgedRecord(405, 12)}, {0}},
        StreamCase{"WrongMagicAtOnce", {"G"}, {}, Ending::Lost},
        StreamCase{"WrongMagicAfterGood", {Times(40, kQuitRecord) + "HTTP"}, Codes(40, 500), Ending::Lost},
        StreamCase{"TooShort", {kQuitRecord + ForgedRecord(500, 11)}, {500}, Ending::Lost},
        StreamCase{"TooLong", {kQuitRecord + ForgedRecord(500, 16385)}, {500}, Ending::Lost},
        StreamCase{"HugeLength", {ForgedRecord(700, 0xFFFFFFFF)}, {}, Ending::Lost},
        StreamCase{"BadText", {Times(16, kQuitRecord) + kBadText}, Codes(16, 500), Ending::Lost},
        StreamCase{"ClosedBehindRecords", {Times(40, kQuitRecord)}, Codes(40, 500), Ending::PeerCloses},
        StreamCase{"ClosedInMidRecord", {kQuitRecord + kChatRecord.substr(0, 20)}, {500}, Ending::PeerCloses}),
    [](const auto& stream) { return stream.param.name; });

TEST_F(SocketControlTest, AnswersPingsAndMeasuresPongs) {
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  peer.Send(Record(PacketInternPing(0x01020304)));
  EXPECT_EQ(peer.Receive(16), Record(PacketInternPong(0x01020304)));
  EXPECT_EQ(owner.Next(1), Codes{kPing});

  const std::uint32_t before = SDL_GetTicks();
  owner.Give(new PacketInternPing(before - 5000));  // it leaves with the tick of its sending
  const std::string ping = peer.Receive(16);
  ASSERT_EQ(ping.size(), 16u);
  EXPECT_LE(LoadBig32(reinterpret_cast<const std::uint8_t*>(ping.data()) + 12) - before, 4000u);

  const std::uint32_t sent = SDL_GetTicks() - 40;
  peer.Send(Record(PacketInternPong(sent)));
  const auto pong = owner.Next();
  ASSERT_NE(PacketCast<PacketInternPong>(pong.get()), nullptr);
  const std::uint32_t measured = PacketCast<PacketInternPong>(pong.get())->mUintTick;
  EXPECT_GE(measured, 40u);
  EXPECT_LE(measured, SDL_GetTicks() - sent);
}

// What a command would do shows in ExpectAlive: the socket closed or another report.
TEST_F(SocketControlTest, ObeysNoPeer) {
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  for (const PacketCode code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 18, 20, 200, 400, 401, 500, 851}) {
    ASSERT_TRUE(peer.Send(FalseClaim(code)));
    EXPECT_EQ(owner.Next(1), Codes{code});
  }
  for (const PacketCode code : {1, 2, 3, 4, 5, 6, 7, 11, 12, 13, 14}) {
    ASSERT_TRUE(peer.Send(Record(*CreatePacket(code))));
    EXPECT_EQ(owner.Next(1), Codes{code});
  }
  ExpectAlive(owner, peer);
}

TEST_F(SocketControlTest, ObeysItsOwnerOnly) {
  LoopbackPeer peer;
  Owner owner;
  owner.GiveAsStranger(new PacketInternTerminate);  // no source: neither obeyed nor taken for the owner
  owner.ConnectTo(peer);
  owner.GiveAsStranger(new PacketInternDisconnect);
  for (const PacketCode code : {1, 2, 3, 4, 7, 8}) {
    auto* claim = new Packet;
    claim->mEnmCode = code;
    owner.Give(claim);
  }
  ExpectAlive(owner, peer);

  owner.Give(new PacketInternNewConnection);  // without a socket
  EXPECT_EQ(owner.Next(1), Codes{kLost});
  EXPECT_TRUE(peer.SeesEnd());
}

TEST_F(SocketControlTest, ReportsEachFailedConnectOnce) {
  LoopbackPeer peer;
  Owner owner;
  const std::uint16_t closedPort = LoopbackPeer().GetPort();
  const std::vector<std::pair<const char*, std::uint16_t>> hopeless = {
      {"", 80}, {"1.2.3.4.5", 80}, {"127.0.0.1", closedPort}, {"127.0.0.1", 0}, {"0.0.0.0", 0}, {"255.255.255.255", 0}};
  for (const auto& [host, port] : hopeless) {
    owner.Give(new PacketInternConnect(host, port));
    owner.Give(new PacketChatMsg("ann", "dropped"));
    EXPECT_EQ(owner.Next(1), Codes{kLost}) << host << ':' << port;
  }
  owner.ConnectTo(peer);
  ExpectAlive(owner, peer);
}

TEST_F(SocketControlTest, AsAServerListensAndHandsItsCallersOn) {
  const std::uint16_t port = LoopbackPeer().GetPort();  // free again
  Owner listener, adopter;
  auto listen = std::make_unique<PacketInternListen>();
  listen->mUintPort = port;
  listener.Give(listen.release());
  ASSERT_EQ(listener.Next(1), Codes{kInfo});
  listener.Give(new PacketInternPing);  // there is nobody to send these to
  listener.Give(new PacketChatMsg("ann", "dropped"));

  for (int caller = 0; caller < 2; ++caller) {
    LoopbackPeer peer;
    ASSERT_TRUE(peer.Connect(port));
    auto reported = listener.Next();
    const auto* connection = PacketCast<PacketInternNewConnection>(reported.get());
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(connection->mUintHost, htonl(INADDR_LOOPBACK));
    EXPECT_EQ(connection->mUintPort, htons(peer.GetLocalPort()));
    adopter.Give(reported.release());
    const auto answer = adopter.Next();
    const auto* info = PacketCast<PacketInternConnectionInfo>(answer.get());
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->mUintPort, htons(peer.GetLocalPort()));
    ExpectAlive(adopter, peer);
    adopter.Give(new PacketInternDisconnect);
    EXPECT_TRUE(peer.SeesEnd());
  }
}

TEST_F(SocketControlTest, LeavesAFloodWithThePeerAndLosesNothingOfIt) {
  constexpr std::uint32_t kCount = 2000;
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  std::string flood;
  PacketInternResend numbered;
  for (; numbered.mUintResendFrom < kCount; ++numbered.mUintResendFrom) flood += Record(numbered);
  ASSERT_TRUE(peer.Send(flood));
  ASSERT_TRUE(WaitUntil([&] { return owner.GetWaitingCount() > kMailboxHighWater; }));
  for (int i = 0; i < 10; ++i) owner.WaitForPass(peer);  // its own pings go on
  EXPECT_LE(owner.GetWaitingCount(), kMailboxHighWater + 16);

  for (std::uint32_t i = 0; i < kCount; ++i) {
    const auto packet = owner.Next();
    const auto* resend = PacketCast<PacketInternResend>(packet.get());
    ASSERT_NE(resend, nullptr);
    ASSERT_EQ(resend->mUintResendFrom, i);
  }
  ExpectAlive(owner, peer);
}

// Sending to a peer that has gone fails while its last records still wait to be cut, and must not raise SIGPIPE.
TEST_F(SocketControlTest, DeliversAPeersLastWordsBeforeItsLoss) {
  LoopbackPeer peer;
  Owner owner;
  owner.ConnectTo(peer);
  ASSERT_TRUE(peer.Send(Times(600, kQuitRecord)));
  ASSERT_TRUE(WaitUntil([&] { return owner.GetWaitingCount() > kMailboxHighWater; }));
  owner.WaitForPass(peer);
  peer.Close();
  for (int i = 0; i < 5; ++i) owner.Give(new PacketChatMsg("ann", "anybody there?"));
  EXPECT_EQ(owner.Next(600), Codes(600, 500));
  EXPECT_EQ(owner.Next(1), Codes{kLost});
}

}  // namespace
}  // namespace tolva::test
