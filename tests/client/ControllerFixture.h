#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "client/ClientBase.h"
#include "foundation/ByteOrder.h"
#include "foundation/Ticks.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"

namespace tolva::test {

template <typename... Packets>
Codes CodesOf() {
  return {Packets::kCode...};
}

// A controller between a server at the other end of a socket and a display of which there is only the mailbox.
class ControllerFixture : public ::testing::Test {
 protected:
  ControllerFixture() {
    WriteFile("client.ini", "[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(mServer.GetPort()) + "\n");
    WriteArchive("Sounds", kLobbyMusic, ReadFile(TOLVA_TEST_MUSIC));
    mClient = std::make_unique<ClientBase>(mDisplay.GetTheirs());
  }
  ~ControllerFixture() override {
    SetTickSource(nullptr);
    if (mClient != nullptr) Quit();
  }

  void Announce() {
    mDisplay.GiveAsStranger(PacketInternCentralMailbox(mDisplay.GetOwn()));
    mWorld = mDisplay.Next();
    ASSERT_NE(PacketCast<PacketInternRepository>(mWorld.get()), nullptr);
  }
  void Connect() {
    Announce();
    mDisplay.Give(PacketLoginRequest());
    EXPECT_TRUE(mServer.Accept());
    EXPECT_TRUE(ReceiveRecord());
  }
  void Quit() {
    mDisplay.Give(PacketQuit());
    mClient->WaitThread(nullptr);
  }

  void FromServer(const Packet& packet) { EXPECT_TRUE(mServer.Send(Record(packet))); }
  // Waits for the next record at the server. False when none comes.
  bool ReceiveRecord() {
    mRecord = mServer.Receive(kHeaderSize);
    if (mRecord.size() < kHeaderSize) return false;
    mRecord += mServer.Receive(LoadBig32(GetHeader() + 8) - kHeaderSize);
    return true;
  }
  PacketCode GetRecordCode() const { return LoadBig32(GetHeader() + 4); }

  const TempDir mDir;
  LoopbackPeer mServer;
  Correspondent mDisplay;
  std::unique_ptr<ClientBase> mClient;
  std::string mRecord;             // the last one at the server
  std::unique_ptr<Packet> mWorld;  // the answer to the announcement

 private:
  const std::uint8_t* GetHeader() const { return reinterpret_cast<const std::uint8_t*>(mRecord.data()); }
};

}  // namespace tolva::test
