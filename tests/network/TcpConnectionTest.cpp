#include <csignal>

#include <gtest/gtest.h>

#include "network/TcpConnection.h"
#include "protocol/PacketList.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

template <typename T>
bool NextIs(TcpConnection& connection) {
  std::unique_ptr<Packet> packet;
  WaitUntil([&] { return (packet = connection.Recieve()) != nullptr; });
  return PacketCast<T>(packet.get()) != nullptr;
}

bool IsBrokenPipeIgnored() {
  struct sigaction action = {};
  sigaction(SIGPIPE, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

TEST(TcpConnection, CarriesPacketsUntilItIsLostAndOutlivesAnother) {
  const TempDir dir;
  ASSERT_FALSE(IsBrokenPipeIgnored());
  LoopbackPeer peer;
  auto other = std::make_unique<TcpConnection>();
  {
    TcpConnection connection;
    other.reset();
    EXPECT_TRUE(IsBrokenPipeIgnored());
    EXPECT_FALSE(connection.IsConnected());
    ASSERT_TRUE(connection.Connect("localhost", peer.GetPort()));
    ASSERT_TRUE(peer.Accept());
    ASSERT_TRUE(NextIs<PacketInternConnectionInfo>(connection));
    EXPECT_EQ(connection.GetPeerHost(), htonl(INADDR_LOOPBACK));
    EXPECT_EQ(connection.GetPeerPort(), htons(peer.GetPort()));

    const PacketChatMsg line("ann", "hello");
    const auto before = std::chrono::steady_clock::now();
    connection.Send(std::unique_ptr<Packet>(line.Clone()));
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(99));
    EXPECT_EQ(peer.Receive(Record(line).size()), Record(line));
    peer.Send(Record(line));
    EXPECT_TRUE(NextIs<PacketChatMsg>(connection));
    peer.Close();
    EXPECT_TRUE(NextIs<PacketInternConnectionLost>(connection));
    EXPECT_TRUE(connection.IsConnected());
  }
  EXPECT_FALSE(IsBrokenPipeIgnored());
}

}  // namespace
}  // namespace tolva::test
