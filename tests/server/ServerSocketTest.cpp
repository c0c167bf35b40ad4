#include <list>
#include <random>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "protocol/PacketList.h"
#include "server/Server.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

// A client that does what the test tells it, whether or not a real one would.
class Client : public LoopbackPeer {
 public:
  explicit Client(const Server& server) { EXPECT_TRUE(Connect(server.GetPort())); }
  bool LogIn(const char* name, const char* password = "", const char* answer = "Welcome") {
    return Send(Record(PacketLoginRequest(name, password, kVersion))) && Sees(answer);
  }
  // Reads until these bytes have come; false when the stream ends first.
  bool Sees(const std::string& bytes) {
    std::string seen;
    for (std::string byte = Receive(1); !byte.empty(); byte = Receive(1))
      if ((seen += byte).ends_with(bytes)) return true;
    return false;
  }
  // Whether the server closes the connection, with or without a farewell.
  bool IsDropped() { return Receive(1 << 20).size() < 1 << 20 && SeesEnd(); }
  bool IsServed() { return Send(Record(PacketInternPing(77))) && Sees(Record(PacketInternPong(77))); }
};

// The real server on a loopback port of its own, with one honest client.
class LoopbackServer : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(mGood.LogIn("Good")) << mProblem; }
  ~LoopbackServer() override {
    mGood.Close();
    Stop();
  }
  void Stop() {
    mServer.Stop();
    if (mThread.joinable()) mThread.join();
  }

  std::ostringstream mLogText;
  ServerLog mLog{mLogText, LogDetail::EventsAndTraffic};
  Server mServer{{.port = 0}, mLog};
  const std::string mProblem = mServer.Listen();
  std::thread mThread{[this] { mServer.Run(); }};
  Client mGood{mServer};
};

TEST_F(LoopbackServer, HostileStreamsOnlyEndTheirOwnConnections) {
  std::vector<std::string> streams{FalseClaim(400), Record(PacketChatUsers()), ForgedRecord(999, 12),
                                   ForgedRecord(400, 12), ForgedRecord(500, 13, std::string(24, 'x'))};
  std::mt19937 random(1);
  for (unsigned i = 1; i <= 20; ++i) {
    std::string noise(20000, '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    streams.push_back(noise);
    streams.push_back(ForgedRecord(i * 50, 12 + i * 7, noise));
  }
  for (std::size_t i = 0; i < streams.size(); ++i) {
    Client beforeLogin(mServer);
    beforeLogin.Send(streams[i]);
    ASSERT_TRUE(beforeLogin.IsDropped()) << i;
    Client afterLogin(mServer);
    ASSERT_TRUE(afterLogin.LogIn("Bad"));
    afterLogin.Send(streams[i]);
    ASSERT_TRUE(afterLogin.IsDropped()) << i;
    Client(mServer).Send(streams[i].substr(0, 1 + i % 11));
    ASSERT_TRUE(mGood.IsServed()) << i;
  }
}

TEST_F(LoopbackServer, StormOfConnectionsDoesNotDisturbTheOthers) {
  std::list<Client> storm;
  for (int i = 0; i < 300; ++i) storm.emplace_back(mServer);
  EXPECT_TRUE(storm.front().IsDropped());
  EXPECT_TRUE(mGood.IsServed());
  storm.clear();
  EXPECT_TRUE(Client(mServer).LogIn("Later"));
}

TEST_F(LoopbackServer, FarewellArrivesThoughTheClientGoesOnSending) {
  std::string flood;
  for (int i = 0; i < 300; ++i) flood += Record(PacketChatMsg("", std::string(1000, 'x').c_str()));
  EXPECT_TRUE(mGood.Send(flood));
  EXPECT_TRUE(mGood.Sees("You were thrown out"));
  EXPECT_TRUE(mGood.IsDropped());
}

TEST_F(LoopbackServer, StopsWithinSecondsWhateverClientsDo) {
  Client stranger(mServer);
  EXPECT_TRUE(stranger.IsServed());
  const auto begin = std::chrono::steady_clock::now();
  Stop();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
  EXPECT_TRUE(mGood.Sees("closing down"));
  EXPECT_TRUE(stranger.Sees("closing down"));
}

TEST_F(LoopbackServer, PortInUseIsAnErrorThatSaysWhatToDo) {
  Server second({.port = mServer.GetPort()}, mLog);
  EXPECT_NE(second.Listen().find("another program does. Choose another port"), std::string::npos);
}

TEST_F(LoopbackServer, LogShowsNoPasswordsAndLetsNothingForgeALine) {
  Client client(mServer);
  EXPECT_TRUE(client.LogIn("evil\n\"x\"\\\x1B[2J\xFC", "secret", "Please"));
  Stop();
  const std::string log = mLogText.str();
  EXPECT_NE(log.find("denied as \"evil\\x0A\\\"x\\\"\\\\\\x1B[2J\\xFC\""), log.npos) << log;
  EXPECT_EQ(log.find("secret"), log.npos);
}

TEST(ClientThatNeverReads, IsDisconnectedBeforeItCostsMuchMemory) {
  struct : ConnectionListener {
    void OnPacket(Connection&, const Packet&) override {}
    void OnSending(Connection&, const Packet&) override {}
    void OnClosed(Connection&, const std::string& reason) override { why = reason; }
    std::string why;
  } listener;
  asio::io_context context;
  asio::ip::tcp::acceptor acceptor(context, asio::ip::tcp::endpoint(asio::ip::address_v4::loopback(), 0));
  LoopbackPeer client;
  ASSERT_TRUE(client.Connect(acceptor.local_endpoint().port()));
  const auto connection = std::make_shared<Connection>(acceptor.accept(), 1, listener);
  connection->Start();
  // The peer's receive buffer grows to the system's limit, which is a few megabytes.
  for (int i = 0; i < 16000 && listener.why.empty(); ++i) {
    connection->Send(PacketChatMsg("", std::string(1000, 'x').c_str()));
    context.poll();
  }
  EXPECT_EQ(listener.why, "does not read what it is sent");
}

}  // namespace
}  // namespace tolva::test
