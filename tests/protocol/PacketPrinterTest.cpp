#include <gtest/gtest.h>

#include "protocol/PacketPrinter.h"
#include "support/PacketSamples.h"

namespace tolva::test {
namespace {

TEST(PacketPrinter, LinesReadAsTheLogHasAlwaysShownThem) {
  PacketPrinter printer;
  PacketMove move;
  move.mUintRx = 1;
  move.mUintRy = 2;
  move.mByAx = 3;
  move.mByAy = 4;
  move.mByFx = 5;
  move.mByFy = 6;
  move.mByLevel = -1;
  move.mEnmDirection = Direction::East;
  EXPECT_STREQ(printer.Print(move),
               "PacketMove: mUintRx=1 mUintRy=2 mByAx=3 mByAy=4 mByFx=5 mByFy=6 mByLevel=-1 mEnmDirection=2");
  EXPECT_STREQ(printer.Print(PacketQuit()), "PacketQuit: ");
  EXPECT_STREQ(printer.Print(PacketChatUsers()), "PacketChatUsers: mUintCount=0 ");
  EXPECT_STREQ(printer.Print(PacketServerInfo()),
               "PacketServerInfo: mUintVersionMajor=0 mUintVersionMinor=0 mUintVersionBugfix=0");
  const auto ground = std::make_unique<PacketAreaGround>();
  EXPECT_STREQ(printer.Print(*ground),
               "PacketAreaGround: mUintRx=0 mUintRy=0 mByAx=0 mByAy=0 mByLevel=0 mByVersion=0 ");
  EXPECT_STREQ(printer.Print(PacketChatMsg("%s", "%n")), "PacketChatMsg: mStrUser=%s mStrMsg=%n");
  EXPECT_EQ(
      std::string(printer.Print(PacketInternCentralMailbox())).rfind("PacketInternCentralMailbox: mObjMailbox=", 0),
      0u);
}

TEST(PacketPrinter, ShowsAFalseClaimAsUnknown) {
  PacketPrinter printer;
  EXPECT_STREQ(printer.Print(*ReadRecord(FalseClaim(405)).packet), "Unknown Packet: mEnmCode=405");
  EXPECT_STREQ(printer.Print(*ReadRecord(FalseClaim(400)).packet), "Unknown Packet: mEnmCode=400");
}

TEST(PacketPrinter, TheLongestLinesFit) {
  PacketPrinter printer;
  PacketGameChatMsg chat;
  std::memset(chat.mStrUser, 'u', 31);
  std::memset(chat.mStrMsg, 'm', 1023);
  chat.mUintRx = chat.mUintRy = 0xFFFFFFFF;
  chat.mByAx = chat.mByAy = chat.mByFx = chat.mByFy = 255;
  chat.mByLevel = -128;
  EXPECT_EQ(std::strlen(printer.Print(chat)), 1183u);
}

}  // namespace
}  // namespace tolva::test
