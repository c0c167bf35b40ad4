#include <gtest/gtest.h>

#include "network/TcpConnection.h"
#include "protocol/InternPackets.h"
#include "support/LoopbackPeer.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

PacketCode NextCode(TcpConnection& connection) {
  std::unique_ptr<Packet> packet;
  WaitUntil([&] { return (packet = connection.Recieve()) != nullptr; });
  return packet == nullptr ? 0 : packet->mEnmCode;
}

TEST(TcpConnection, KnowsItsPeerAndCountsAsConnectedAfterALoss) {
  const TempDir dir;
  LoopbackPeer peer;
  TcpConnection connection;
  EXPECT_FALSE(connection.IsConnected());
  ASSERT_TRUE(connection.Connect("127.0.0.1", peer.GetPort()));
  ASSERT_TRUE(peer.Accept());
  EXPECT_EQ(NextCode(connection), PacketInternConnectionInfo::kCode);
  EXPECT_EQ(connection.GetPeerHost(), htonl(INADDR_LOOPBACK));
  EXPECT_EQ(connection.GetPeerPort(), htons(peer.GetPort()));
  peer.Close();
  EXPECT_EQ(NextCode(connection), PacketInternConnectionLost::kCode);
  EXPECT_TRUE(connection.IsConnected());
}

}  // namespace
}  // namespace tolva::test
