#include <string>

#include <gtest/gtest.h>

#include "network/ServerInstance.h"
#include "protocol/PacketList.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

// The controller's side of a server instance.
class Controller {
 public:
  explicit Controller(const std::string& settings) {
    WriteFile("client.ini", settings);
    mInstance = std::make_unique<ServerInstance>(&mServer);
    Give(new PacketInternCentralMailbox(&mOwn));
  }
  explicit Controller(const LoopbackPeer& peer)
      : Controller("[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(peer.GetPort()) + "\n") {}
  ~Controller() { Quit(); }

  void Give(Packet* packet) {
    packet->mObjSource = &mOwn;
    mServer.Put(packet);
  }
  void Login(const char* name) {
    auto* request = new PacketLoginRequest;
    CopyText(request->mStrLogin, name);
    Give(request);
  }
  // Ends the thread and closes the connection.
  void Quit() {
    if (mInstance == nullptr) return;
    Give(new PacketQuit);
    mInstance->WaitThread(nullptr);
    mInstance.reset();
  }

  template <typename T>
  bool NextIs() {
    std::unique_ptr<Packet> packet;
    WaitUntil([&] { return (packet.reset(mOwn.Get()), packet != nullptr); });
    return PacketCast<T>(packet.get()) != nullptr && packet->mObjSource == &mServer;
  }
  std::uint32_t GetMailCount() { return mOwn.GetCount(); }

 private:
  Mailbox mOwn;
  Mailbox mServer;
  std::unique_ptr<ServerInstance> mInstance;
};

class ServerInstanceTest : public testing::Test {
 protected:
  TempDir mDir;
};

std::string LoginRecord(const char* name) {
  PacketLoginRequest request;
  CopyText(request.mStrLogin, name);
  return Record(request);
}

TEST_F(ServerInstanceTest, ConnectsAtTheFirstLoginAndSendsWhatIsForTheServer) {
  LoopbackPeer peer;
  Controller controller(peer);
  controller.Give(new PacketChatMsg("ann", "too early"));
  controller.Login("ann");
  controller.Login("bob");
  ASSERT_TRUE(peer.Accept());
  ASSERT_TRUE(controller.NextIs<PacketInternConnectionInfo>());
  const std::string ann = LoginRecord("ann"), bob = LoginRecord("bob");
  const std::string logins = peer.Receive(2 * ann.size());  // the two wait in turns
  EXPECT_TRUE(logins == ann + bob || logins == bob + ann);

  for (const PacketCode code : {12, 200, 400, 500}) {
    auto* claim = new Packet;
    claim->mEnmCode = code;
    controller.Give(claim);
  }
  peer.Send(Record(PacketLoginAccept()) + FalseClaim(11) + Record(PacketInternCentralMailbox()));
  EXPECT_TRUE(controller.NextIs<PacketLoginAccept>());
  EXPECT_FALSE(controller.NextIs<PacketInternConnectionInfo>());
  EXPECT_TRUE(controller.NextIs<PacketInternCentralMailbox>());

  controller.Give(new PacketUserInGame);
  controller.Quit();
  EXPECT_EQ(peer.Receive(1000), Record(PacketUserInGame()));  // and neither claims nor the quit
  EXPECT_FALSE(peer.HasCaller());
}

TEST_F(ServerInstanceTest, AfterAFailedConnectTriesNoSecondOneAndStillQuits) {
  const std::uint16_t port = LoopbackPeer().GetPort();
  Controller controller("[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(port) + "\n");
  controller.Login("ann");
  ASSERT_TRUE(controller.NextIs<PacketInternConnectionLost>());
  const LoopbackPeer late(port);
  controller.Login("bob");
  controller.Quit();
  EXPECT_FALSE(late.HasCaller());
  EXPECT_EQ(controller.GetMailCount(), 0u);
}

TEST_F(ServerInstanceTest, ReportsALossWhenTheSettingsLeadNowhere) {
  const std::string none = "[DISPLAY]\nWidth=800\n", noPort = "[NETWORK]\nHost=127.0.0.1\n";
  const std::string longHost = "[NETWORK]\nHost=" + std::string(5000, '1') + "\nPort=99999999999999999999\n";
  for (const std::string& settings : {none, noPort, longHost}) {
    Controller controller(settings);
    controller.Login("ann");
    EXPECT_TRUE(controller.NextIs<PacketInternConnectionLost>()) << settings;
  }
}

TEST_F(ServerInstanceTest, KeepsSendingWhenTheControllerIsFloodedAndPassesTheLossOn) {
  LoopbackPeer peer;
  Controller controller(peer);
  controller.Login("ann");
  ASSERT_TRUE(peer.Accept());
  ASSERT_EQ(peer.Receive(LoginRecord("ann").size()), LoginRecord("ann"));
  ASSERT_TRUE(controller.NextIs<PacketInternConnectionInfo>());
  std::string flood;
  for (int i = 0; i < 400; ++i) flood += Record(PacketLoginAccept());
  ASSERT_TRUE(peer.Send(flood));
  ASSERT_TRUE(WaitUntil([&] { return controller.GetMailCount() > kMailboxHighWater; }));
  for (int i = 0; i < 3; ++i) controller.Give(new PacketUserInGame);
  EXPECT_EQ(peer.Receive(3 * 16).size(), 3u * 16);
  EXPECT_EQ(controller.GetMailCount(), kMailboxHighWater + 1);

  peer.Close();
  for (int i = 0; i < 400; ++i) ASSERT_TRUE(controller.NextIs<PacketLoginAccept>());
  EXPECT_TRUE(controller.NextIs<PacketInternConnectionLost>());
}

}  // namespace
}  // namespace tolva::test
