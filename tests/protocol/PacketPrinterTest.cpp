#include <gtest/gtest.h>

#include "protocol/PacketPrinter.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

TEST(PacketPrinter, LinesReadAsTheLogHasAlwaysShownThem) {
  PacketPrinter printer;
  PacketMove move;
  static_cast<FieldPosition&>(move) = {{1, 2, 3, 4, -1}, 5, 6};
  move.mEnmDirection = Direction::East;
  EXPECT_STREQ(printer.Print(move),
               "PacketMove: mUintRx=1 mUintRy=2 mByAx=3 mByAy=4 mByFx=5 mByFy=6 mByLevel=-1 mEnmDirection=2");
  EXPECT_STREQ(printer.Print(PacketQuit()), "PacketQuit: ");
  EXPECT_STREQ(printer.Print(PacketChatUsers()), "PacketChatUsers: mUintCount=0 ");
  EXPECT_STREQ(printer.Print(PacketAreaGround()),
               "PacketAreaGround: mUintRx=0 mUintRy=0 mByAx=0 mByAy=0 mByLevel=0 mByVersion=0 ");
  EXPECT_STREQ(printer.Print(PacketChatMsg("%s", "%n")), "PacketChatMsg: mStrUser=%s mStrMsg=%n");
  EXPECT_STREQ(printer.Print(*ReadRecord(FalseClaim(400)).packet), "Unknown Packet: mEnmCode=400");
}

TEST(PacketPrinter, TheLongestLinesFit) {
  PacketGameChatMsg chat;
  std::memset(chat.mStrUser, 'u', 31);
  std::memset(chat.mStrMsg, 'm', 1023);
  static_cast<FieldPosition&>(chat) = {{0xFFFFFFFF, 0xFFFFFFFF, 255, 255, -128}, 255, 255};
  EXPECT_EQ(std::strlen(PacketPrinter().Print(chat)), 1183u);
}

}  // namespace
}  // namespace tolva::test
