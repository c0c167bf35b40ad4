#include <gtest/gtest.h>

#include "protocol/PacketPrinter.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

TEST(PacketPrinter, PrintsPacketsAsReadersOfTheLogKnowThem) {
  PacketPrinter printer;
  EXPECT_STREQ(printer.Print(PacketMove({{1, 2, 3, 4, -1}, 5, 6}, Direction::East)),
               "PacketMove: mUintRx=1 mUintRy=2 mByAx=3 mByAy=4 mByFx=5 mByFy=6 mByLevel=-1 mEnmDirection=2");
  EXPECT_STREQ(printer.Print(PacketQuit()), "PacketQuit: ");
  EXPECT_STREQ(printer.Print(PacketChatUsers()), "PacketChatUsers: mUintCount=0 ");
  EXPECT_STREQ(printer.Print(PacketAreaGround()),
               "PacketAreaGround: mUintRx=0 mUintRy=0 mByAx=0 mByAy=0 mByLevel=0 mByVersion=0 ");
  EXPECT_STREQ(printer.Print(PacketChatMsg("%s", "%n")), "PacketChatMsg: mStrUser=%s mStrMsg=%n");
  EXPECT_STREQ(printer.Print(*ReadRecord(FalseClaim(400)).packet), "Unknown Packet: mEnmCode=400");
}

TEST(PacketPrinter, HasRoomForTheLongestTextsThatFitTheirFields) {
  const std::string text(2000, 'x');
  const PacketGameChatMsg chat({{0xFFFFFFFF, 0xFFFFFFFF, 255, 255, -128}, 255, 255}, text.c_str(), text.c_str());
  EXPECT_EQ(std::strlen(PacketPrinter().Print(chat)), 1183u);
}

}  // namespace
}  // namespace tolva::test
