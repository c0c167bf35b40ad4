#include <atomic>
#include <filesystem>

#include <SDL.h>
#include <gtest/gtest.h>

#include "client/ClientBase.h"
#include "foundation/Ticks.h"
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
  ~ClientBaseWorldTest() override { End(); }
  void End() {
    if (client == nullptr) return;
    display.Give(PacketQuit());
    client->WaitThread(nullptr);
    client.reset();
  }
  void FromServer(const Packet& packet) { server.Send(Record(packet)); }
  // Waits for the packet, whatever is sent before it.
  bool ServerGets(const Packet& packet) {
    std::string stream, byte;
    while (!stream.ends_with(Record(packet)) && !(byte = server.Receive(1)).empty()) stream += byte;
    return !byte.empty();
  }

  // How many questions for areas the server gets before the packet.
  int RequestsBefore(const Packet& packet) {
    const std::string request = Record(PacketAreaVersion()).substr(0, kHeaderSize);
    std::string stream, byte;
    int count = 0;
    while (!stream.ends_with(Record(packet)) && !(byte = server.Receive(1)).empty()) {
      stream += byte;
      if (stream.ends_with(request)) ++count;
    }
    return byte.empty() ? 1000 : count;
  }

  const PacketEnterChatRequest escape;
  const PacketChatMsg line{"", "One more thing"};
  const TempDir dir;
  LoopbackPeer server;
  Correspondent display;
  std::unique_ptr<ClientBase> client;
};

// All happens in area (0, 0) of region (0,
// 0).
TEST_F(ClientBaseWorldTest, WhatTheServerTellsOfTheWorldReachesMapAndDisplay) {
  const auto announcement = display.Next();
  ClientMap& map = PacketCast<PacketInternRepository>(announcement.get())->mObjRepository->GetMap();
  PacketCharPosition placement;
  placement.mByFx = 24;  // no such field
  FromServer(placement);
  placement.mByFx = 0;
  placement.mByFy = 23;
  FromServer(placement);
  EXPECT_EQ(display.Next(2), (Codes{PacketInternStatus::kCode, PacketCharPosition::kCode}));
  EXPECT_TRUE(ServerGets(PacketAreaVersion({{0xFFFFFFFF, 0xFFFFFFFF, 5, 5, 0}, 0}))) << "the first of the 49";

  server.Send(FalseClaim(PacketAreaVersion::kCode));
  for (const PacketCode code : {700u, 701u, 702u}) FromServer(*CreatePacket(code));
  EXPECT_EQ(display.Next(3), (Codes{PacketInternStatus::kCode, PacketAreaGround::kCode, PacketAreaVolu::kCode}));
  const auto status = display.Next();
  ASSERT_NE(PacketCast<PacketInternStatus>(status.get()), nullptr);
  EXPECT_EQ(PacketCast<PacketInternStatus>(status.get())->mUintValue, 2) << "ground and version answer for an area";
  EXPECT_TRUE(std::filesystem::exists("area/0000000000000000000000"));

  PacketGameChatMsg speech;
  CopyText(speech.mStrMsg, "hello");
  FromServer(PacketAddChar());
  FromServer(speech);
  EXPECT_EQ(display.Next(2), (Codes{PacketAddChar::kCode, PacketGameChatMsg::kCode}));
  const Field& field = *map.GetCenterArea()->GetField(0, 0);
  ASSERT_NE(field.GetCharacter(), nullptr);
  EXPECT_STREQ(ClientCharacter::On(field)->GetChatMessage(), "hello");

  PacketMove move;
  move.mByFy = 23;
  move.mEnmDirection = Direction::NorthEast;
  FromServer(PacketRemoveChar());
  FromServer(move);
  EXPECT_EQ(display.Next(2), (Codes{PacketRemoveChar::kCode, PacketMove::kCode}));
  EXPECT_EQ(field.GetCharacter(), nullptr);
  EXPECT_TRUE(ServerGets(PacketAreaVersion({{0, 0, 3, 4, 0}, 0}))) << "the map followed";
}

// While a placement's 49 requests wait.
TEST_F(ClientBaseWorldTest, NothingThatThePlayerDoesWaitsBehindRequests) {
  FromServer(PacketCharPosition());
  EXPECT_TRUE(ServerGets(PacketAreaVersion({{0xFFFFFFFF, 0xFFFFFFFF, 5, 5, 0}, 0})));
  for (const Packet* what : {static_cast<const Packet*>(&escape), static_cast<const Packet*>(&line)}) {
    display.Give(*what);
    EXPECT_LE(RequestsBefore(*what), 2) << "one on its way, and one that waited";
  }
  display.Give(line);
  display.Give(PacketQuit());
  EXPECT_LE(RequestsBefore(line), 2) << "what was said before a quit is still sent";
  End();
  EXPECT_TRUE(server.SeesEnd()) << "and nothing more";
}

TEST_F(ClientBaseWorldTest, RequestsWaitWhileTheServerSpeaks) {
  static std::atomic<std::uint32_t> sNow;
  sNow = GetTicks() + 10'000;
  SetTickSource([] { return sNow.load(); });
  FromServer(PacketCharPosition());
  EXPECT_TRUE(ServerGets(PacketAreaVersion({{0xFFFFFFFF, 0xFFFFFFFF, 5, 5, 0}, 0})));
  EXPECT_EQ(display.Next(3).back(), PacketCharPosition::kCode);
  for (const int elapsed : {110, 10}) {
    sNow += elapsed;
    FromServer(PacketDarkness());
    EXPECT_EQ(display.Next(1), Codes{PacketDarkness::kCode});
  }
  display.Give(line);
  EXPECT_EQ(RequestsBefore(line), 0) << "the pause is over, silence is not";
  SetTickSource(nullptr);
}

}  // namespace
}  // namespace tolva::test
