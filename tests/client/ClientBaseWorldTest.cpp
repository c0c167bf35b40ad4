#include <filesystem>

#include <gtest/gtest.h>

#include "client/ClientBase.h"
#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/LoopbackPeer.h"
#include "support/Records.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

using Codes = std::vector<PacketCode>;

struct ClientBaseWorldTest : testing::Test {
  ClientBaseWorldTest() {
    WriteFile("client.ini", "[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(server.GetPort()) + "\n");
    std::filesystem::create_directory("area");
    client = std::make_unique<ClientBase>(display.GetTheirs());
    display.GiveAsStranger(PacketInternCentralMailbox(display.GetOwn()));
    display.Give(PacketLoginRequest());
    EXPECT_TRUE(server.Accept());
  }
  ~ClientBaseWorldTest() override {
    display.Give(PacketQuit());
    client->WaitThread(nullptr);
  }
  template <typename PacketX>
  void FromServer(PacketX packet, std::uint8_t fx = 0, std::uint8_t fy = 0) {
    static_cast<AreaPosition&>(packet) = {10, 20, 4, 4, 3};
    if constexpr (requires { packet.mByFx; }) {
      packet.mByFx = fx;
      packet.mByFy = fy;
    }
    server.Send(Record(packet));
  }
  // Whether so many areas are asked for, whatever else is sent.
  bool IsAskedForAreas(int count) {
    while (count > 0) {
      const std::string header = server.Receive(kHeaderSize);
      if (header.size() < kHeaderSize) return false;
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(header.data());
      server.Receive(LoadBig32(bytes + 8) - kHeaderSize);
      if (LoadBig32(bytes + 4) == PacketAreaVersion::kCode) --count;
    }
    return true;
  }

  const TempDir dir;
  LoopbackPeer server;
  Correspondent display;
  std::unique_ptr<ClientBase> client;
};

// One run, since the 49 requests that follow a placement take five seconds.
TEST_F(ClientBaseWorldTest, WhatTheServerTellsOfTheWorldReachesMapAndDisplay) {
  const auto announcement = display.Next();
  Repository& repository = *PacketCast<PacketInternRepository>(announcement.get())->mObjRepository;
  FromServer(PacketCharPosition(), 24, 0);  // names no field
  FromServer(PacketCharPosition(), 12, 23);
  EXPECT_EQ(display.Next(2), (Codes{PacketInternStatus::kCode, PacketCharPosition::kCode}));
  EXPECT_TRUE(IsAskedForAreas(49));

  server.Send(FalseClaim(PacketAreaVersion::kCode));
  FromServer(PacketAreaGround());
  FromServer(PacketAreaVolu());
  FromServer(PacketAreaVersion());
  EXPECT_EQ(display.Next(3), (Codes{PacketInternStatus::kCode, PacketAreaGround::kCode, PacketAreaVolu::kCode}));
  const auto status = display.Next();
  ASSERT_NE(PacketCast<PacketInternStatus>(status.get()), nullptr);
  EXPECT_EQ(PacketCast<PacketInternStatus>(status.get())->mUintValue, 2) << "two areas answered";
  EXPECT_TRUE(std::filesystem::exists("area/0000000A00000014040403"));

  PacketGameChatMsg speech;
  CopyText(speech.mStrMsg, "hello");
  FromServer(PacketAddChar(), 5, 5);
  FromServer(speech, 5, 5);
  EXPECT_EQ(display.Next(2), (Codes{PacketAddChar::kCode, PacketGameChatMsg::kCode}));
  const Field& field = *repository.GetMap().GetCenterArea()->GetField(5, 5);
  ASSERT_NE(field.GetCharacter(), nullptr);
  EXPECT_STREQ(ClientCharacter::On(field)->GetChatMessage(), "hello");

  PacketMove move;
  move.mEnmDirection = Direction::NorthEast;
  FromServer(PacketRemoveChar(), 5, 5);
  FromServer(move, 12, 23);
  EXPECT_EQ(display.Next(2), (Codes{PacketRemoveChar::kCode, PacketMove::kCode}));
  EXPECT_EQ(field.GetCharacter(), nullptr);
  EXPECT_EQ(repository.GetPlayer().GetField()->GetArea(), repository.GetMap().GetCenterArea());
  EXPECT_TRUE(IsAskedForAreas(7));
}

}  // namespace
}  // namespace tolva::test
