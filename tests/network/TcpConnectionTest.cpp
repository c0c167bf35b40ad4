#include <csignal>

#include <gtest/gtest.h>

#include "network/TcpConnection.h"
#include "protocol/PacketList.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

class TcpConnectionTest : public testing::Test {
 protected:
  static std::unique_ptr<Packet> Next(TcpConnection& connection) {
    std::unique_ptr<Packet> packet;
    WaitUntil([&] { return (packet = connection.Recieve()) != nullptr; });
    return packet;
  }
  template <typename T>
  static bool NextIs(TcpConnection& connection) {
    return PacketCast<T>(Next(connection).get()) != nullptr;
  }

  TempDir mDir;
};

TEST_F(TcpConnectionTest, CarriesPacketsBothWaysAndKnowsItsPeer) {
  LoopbackPeer peer;
  TcpConnection connection;
  EXPECT_EQ(connection.Recieve(), nullptr);
  EXPECT_FALSE(connection.IsConnected());
  ASSERT_TRUE(connection.Connect("localhost", peer.GetPort()));
  ASSERT_TRUE(peer.Accept());
  ASSERT_TRUE(NextIs<PacketInternConnectionInfo>(connection));
  EXPECT_TRUE(connection.IsConnected());
  EXPECT_EQ(connection.GetPeerHost(), htonl(INADDR_LOOPBACK));
  EXPECT_EQ(connection.GetPeerPort(), htons(peer.GetPort()));

  const PacketChatMsg line("ann", "hello");
  const auto before = std::chrono::steady_clock::now();
  connection.Send(std::unique_ptr<Packet>(line.Clone()));
  EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(99));
  EXPECT_EQ(peer.Receive(Record(line).size()), Record(line));

  peer.Send(Record(line));
  peer.Close();
  EXPECT_TRUE(NextIs<PacketChatMsg>(connection));
  EXPECT_TRUE(NextIs<PacketInternConnectionLost>(connection));
  EXPECT_TRUE(connection.IsConnected());
}

bool IsBrokenPipeIgnored() {
  struct sigaction action = {};
  sigaction(SIGPIPE, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

TEST_F(TcpConnectionTest, KeepsTheNetworkUpUntilTheLastOneGoes) {
  ASSERT_FALSE(IsBrokenPipeIgnored());
  auto first = std::make_unique<TcpConnection>();
  auto second = std::make_unique<TcpConnection>();
  first.reset();
  EXPECT_TRUE(IsBrokenPipeIgnored());
  LoopbackPeer peer;
  second->Connect("127.0.0.1", peer.GetPort());
  ASSERT_TRUE(peer.Accept());
  EXPECT_TRUE(NextIs<PacketInternConnectionInfo>(*second));
  second.reset();
  EXPECT_TRUE(peer.SeesEnd());
  EXPECT_FALSE(IsBrokenPipeIgnored());
}

TEST_F(TcpConnectionTest, ClosesAcceptedSocketsThatNobodyAdopted) {
  LoopbackPeer peer;
  auto server = std::make_unique<TcpConnection>();
  auto listen = std::make_unique<PacketInternListen>();
  listen->mUintPort = LoopbackPeer().GetPort();  // free again
  const std::uint16_t port = listen->mUintPort;
  server->Send(std::move(listen));
  ASSERT_TRUE(NextIs<PacketInternConnectionInfo>(*server));
  ASSERT_TRUE(peer.Connect(port));
  Packet* connection = nullptr;
  ASSERT_TRUE(WaitUntil([&] { return (connection = server->FetchMail()) != nullptr; }));
  server->Send(std::make_unique<PacketInternTerminate>());
  server->Send(std::unique_ptr<Packet>(connection));  // too late
  server.reset();
  EXPECT_TRUE(peer.SeesEnd());
}

}  // namespace
}  // namespace tolva::test
