#include <string>

#include <gtest/gtest.h>

#include "network/ServerInstance.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

PacketLoginRequest LoginOf(const char* name) { return {name, "secret"}; }

// A server instance, whose client.ini names the port, and its controller.
class Controller : public Correspondent {
 public:
  explicit Controller(std::uint16_t port) {
    WriteFile("client.ini", "[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(port) + "\n");
    mInstance = std::make_unique<ServerInstance>(GetTheirs());
    Give(PacketInternCentralMailbox(GetOwn()));
  }
  ~Controller() { Quit(); }

  // Ends the thread and closes the connection.
  void Quit() {
    Give(PacketQuit());
    if (mInstance != nullptr) mInstance->WaitThread(nullptr);
    mInstance.reset();
  }

 private:
  const TempDir mDir;
  std::unique_ptr<ServerInstance> mInstance;
};

TEST(ServerInstance, ConnectsAtTheFirstLoginAndPassesPacketsBothWays) {
  LoopbackPeer peer;
  Controller controller(peer.GetPort());
  controller.Give(PacketChatMsg("ann", "too early"));
  controller.Give(LoginOf("ann"));
  controller.Give(LoginOf("bob"));
  ASSERT_TRUE(peer.Accept());
  ASSERT_EQ(controller.Next(1), Codes{PacketInternConnectionInfo::kCode});
  const std::string ann = Record(LoginOf("ann")), bob = Record(LoginOf("bob"));
  const std::string logins = peer.Receive(2 * ann.size());
  EXPECT_TRUE(logins == ann + bob || logins == bob + ann) << "waiting requests change places";

  const Uint32 start = SDL_GetTicks();
  for (int i = 0; i < 3; ++i) controller.Give(PacketUserInGame());
  EXPECT_EQ(peer.Receive(3 * 16), Record(PacketUserInGame()) + Record(PacketUserInGame()) + Record(PacketUserInGame()));
  EXPECT_GE(SDL_GetTicks() - start, 200u) << "a pause after each";

  constexpr PacketCode kMailbox = PacketInternCentralMailbox::kCode, kQuit = PacketQuit::kCode;
  for (const PacketCode code : {kMailbox, PacketLoginRequest::kCode, PacketChatMsg::kCode, kQuit}) {
    Packet claim;
    claim.mEnmCode = code;
    controller.Give(claim);
  }
  peer.Send(Record(PacketLoginAccept()) + Record(PacketInternCentralMailbox()) + Record(PacketQuit()));
  EXPECT_EQ(controller.Next(3), (Codes{PacketLoginAccept::kCode, kMailbox, kQuit}));

  controller.Give(PacketUserInGame());
  controller.Quit();
  EXPECT_EQ(peer.Receive(1000), Record(PacketUserInGame())) << "and neither false claims nor the quit";
  EXPECT_FALSE(peer.HasCaller());
}

TEST(TcpConnection, KnowsItsPeer) {
  const TempDir dir;
  const LoopbackPeer peer;
  TcpConnection connection;
  ASSERT_TRUE(connection.Connect("127.0.0.1", peer.GetPort()));
  EXPECT_TRUE(WaitUntil([&] { return connection.Recieve() != nullptr; }));
  EXPECT_EQ(connection.GetPeerHost(), htonl(INADDR_LOOPBACK));
  EXPECT_EQ(connection.GetPeerPort(), htons(peer.GetPort()));
}

TEST(ServerInstance, DoesNotReconnectAfterALoss) {
  LoopbackPeer peer;
  Controller controller(peer.GetPort());
  controller.Give(LoginOf("ann"));
  ASSERT_TRUE(peer.Accept());
  ASSERT_EQ(controller.Next(1), Codes{PacketInternConnectionInfo::kCode});
  peer.Close();
  ASSERT_EQ(controller.Next(1), Codes{PacketInternConnectionLost::kCode});
  controller.Give(LoginOf("ann"));
  controller.Quit();
  EXPECT_FALSE(peer.HasCaller());
}

TEST(ServerInstance, ConnectsOnlyOnceAndQuitsAfterAFailure) {
  const std::uint16_t port = LoopbackPeer().GetPort();
  Controller controller(port);
  controller.Give(LoginOf("ann"));
  ASSERT_EQ(controller.Next(1), Codes{PacketInternConnectionLost::kCode});
  const LoopbackPeer late(port);
  controller.Give(LoginOf("bob"));
  controller.Quit();
  EXPECT_FALSE(late.HasCaller());
  EXPECT_EQ(controller.GetWaitingCount(), 0u);
}

}  // namespace
}  // namespace tolva::test
