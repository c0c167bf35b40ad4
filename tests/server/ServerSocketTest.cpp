#include <list>
#include <random>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "server/LoopbackClient.h"
#include "server/Server.h"

namespace tolva::test {
namespace {

// The real server on a loopback port of its own.
class LoopbackServer : public ::testing::Test {
 protected:
  LoopbackServer() : mServer({.port = 0}, mLog), mProblem(mServer.Listen()), mThread([this] { mServer.Run(); }) {}
  ~LoopbackServer() override {
    mServer.Stop();
    if (mThread.joinable()) mThread.join();
  }
  void SetUp() override { ASSERT_EQ(mProblem, ""); }

  std::ostringstream mLogText;
  ServerLog mLog{mLogText, LogDetail::EventsAndTraffic};
  Server mServer;
  std::string mProblem;
  std::thread mThread;
};

std::string MakeRecord(PacketCode code, std::uint32_t declared, const std::string& body,
                       std::uint32_t magic = kProtocolMagic) {
  std::uint8_t header[kHeaderSize];
  StoreBig32(header, magic);
  StoreBig32(header + 4, code);
  StoreBig32(header + 8, declared);
  return std::string(header, header + sizeof header) + body;
}

std::string MakeNoise(unsigned seed, std::size_t size) {
  std::mt19937 random(seed);
  std::string noise(size, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  return noise;
}

TEST_F(LoopbackServer, HostileStreamsEndAloneWhileOthersChat) {
  std::vector<std::string> streams{MakeRecord(400, 0xFFFFFFFF, ""), MakeRecord(400, 16385, ""), MakeRecord(400, 11, ""),
                                   MakeRecord(400, 24, "", kProtocolMagic + 1), MakeRecord(999, 12, ""),
                                   MakeRecord(500, 13, "xxxxxxxxxxxxxxxxxxxxxxxx"),
                                   // Texts that lie about their length, or do not end.
                                   MakeRecord(400, 20, std::string("\xFF\xFF\xFF\xFF....", 8)),
                                   MakeRecord(400, 24, std::string("\0\0\0\1X\0\0\0\1\0\0\0", 12)),
                                   MakeRecord(200, 16, std::string(4, '\0'))};
  for (unsigned seed = 1; seed <= 20; ++seed) streams.push_back(MakeNoise(seed, 20000));
  for (unsigned seed = 1; seed <= 20; ++seed)
    streams.push_back(MakeRecord(seed * 50, 12 + seed * 7, MakeNoise(seed, 4096)));
  for (PacketCode code = 0; code <= 1002; ++code) {
    if (CreatePacket(code) == nullptr) continue;
    std::string claim(4, '\0');
    StoreBig32(reinterpret_cast<std::uint8_t*>(claim.data()), code);
    streams.push_back(MakeRecord(0, 16, claim));
  }

  LoopbackClient good(mServer.GetPort());
  ASSERT_TRUE(good.LogIn("Good"));
  for (std::size_t i = 0; i < streams.size(); ++i) {
    LoopbackClient beforeLogin(mServer.GetPort());
    beforeLogin.SendBytes(streams[i]);
    EXPECT_TRUE(beforeLogin.AwaitClose()) << i;
    LoopbackClient afterLogin(mServer.GetPort());
    ASSERT_TRUE(afterLogin.LogIn("Bad")) << i;
    afterLogin.SendBytes(streams[i]);
    EXPECT_TRUE(afterLogin.AwaitClose()) << i;
    LoopbackClient(mServer.GetPort())
        .SendBytes(LoopbackClient::Encode(PacketChatMsg("", "half")).substr(0, 1 + i % 24));
    // Fewer lines than a flood in any case.
    if (i % 10 == 0) {
      EXPECT_TRUE(good.ChatWorks("unharmed " + std::to_string(i)));
    }
  }
}

TEST_F(LoopbackServer, StormOfConnectionsLeavesTheOthersInPeace) {
  LoopbackClient good(mServer.GetPort());
  ASSERT_TRUE(good.LogIn("Good"));
  std::list<LoopbackClient> storm;
  for (int i = 0; i < 300; ++i) storm.emplace_back(mServer.GetPort());
  EXPECT_TRUE(storm.front().AwaitClose());
  EXPECT_TRUE(good.ChatWorks("calm"));
  storm.clear();
  LoopbackClient later(mServer.GetPort());
  EXPECT_TRUE(later.LogIn("Later"));
}

TEST_F(LoopbackServer, FarewellArrivesThoughItsClientGoesOnSending) {
  LoopbackClient flooder(mServer.GetPort());
  ASSERT_TRUE(flooder.LogIn("Flooder"));
  std::string flood;
  for (int i = 0; i < 300; ++i) flood += LoopbackClient::Encode(PacketChatMsg("", std::string(1000, 'x').c_str()));
  flooder.SendBytes(flood);
  EXPECT_TRUE(flooder.AwaitLine("You were thrown out"));
  EXPECT_TRUE(flooder.AwaitClose());
}

TEST_F(LoopbackServer, PingsAreAnsweredInKind) {
  LoopbackClient client(mServer.GetPort());
  client.Send(PacketInternPing(123456789));
  EXPECT_TRUE(client.Await<PacketInternPong>([](const auto& pong) { return pong.mUintTick == 123456789; }));
}

TEST_F(LoopbackServer, StopsWithinSecondsWhateverClientsDo) {
  LoopbackClient polite(mServer.GetPort());
  LoopbackClient stubborn(mServer.GetPort());
  ASSERT_TRUE(polite.LogIn("Polite") && stubborn.LogIn("Stubborn"));
  const auto begin = std::chrono::steady_clock::now();
  mServer.Stop();
  EXPECT_TRUE(polite.AwaitLine("closing down"));
  EXPECT_TRUE(polite.AwaitClose());
  mThread.join();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
  EXPECT_TRUE(stubborn.AwaitLine("closing down"));
}

TEST_F(LoopbackServer, PortInUseIsAnErrorThatNamesTheWayOut) {
  Server second({.port = mServer.GetPort()}, mLog);
  EXPECT_NE(second.Listen().find("another program does. Choose another port"), std::string::npos);
}

TEST_F(LoopbackServer, LogShowsNoPasswordsAndNoControlCharacters) {
  LoopbackClient client(mServer.GetPort());
  PacketLoginRequest request;
  CopyText(request.mStrLogin, "evil\nname\x1B[2J");
  CopyText(request.mStrPass, "secret");
  client.Send(request);
  EXPECT_TRUE(client.Await<PacketLoginDeny>([](const auto&) { return true; }));
  mServer.Stop();
  mThread.join();
  const std::string log = mLogText.str();
  EXPECT_NE(log.find("evil\\x0Aname\\x1B[2J"), std::string::npos) << log;
  EXPECT_EQ(log.find("secret"), std::string::npos);
  EXPECT_EQ(log.find('\x1B'), std::string::npos);
}

// Counts what a connection that nobody reads from takes before it gives up.
class ClientThatNeverReads : public ::testing::Test, public ConnectionListener {
 protected:
  void OnPacket(Connection&, const Packet&) override {}
  void OnSending(Connection&, const Packet&) override { ++mSent; }
  void OnClosed(Connection&, const std::string& why) override { mWhy = why; }

  std::size_t mSent = 0;
  std::string mWhy;
};

TEST_F(ClientThatNeverReads, LosesItsConnectionBeforeItCostsMuchMemory) {
  asio::io_context context;
  using asio::ip::tcp;
  tcp::acceptor acceptor(context, tcp::endpoint(asio::ip::address_v4::loopback(), 0));
  const LoopbackClient client(acceptor.local_endpoint().port());
  const auto connection = std::make_shared<Connection>(acceptor.accept(), 1, *this);
  connection->Start();
  const PacketChatMsg line("", std::string(1000, 'x').c_str());
  for (int i = 0; i < 100000 && mWhy.empty(); ++i) {
    connection->Send(line);
    context.poll();
  }
  EXPECT_EQ(mWhy, "does not read what it is sent");
  EXPECT_GT(mSent, Connection::kMostQueued / 1100);
  // The peer's receive buffer grows to the system's limit, which is a few megabytes.
  EXPECT_LT(mSent, 16000U);
}

}  // namespace
}  // namespace tolva::test
