#include <gtest/gtest.h>

#include "protocol/RecordCutter.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

using Outcome = RecordCutter::Outcome;

void Feed(RecordCutter& cutter, const std::string& bytes) {
  const auto room = cutter.Room();
  ASSERT_GE(room.size(), bytes.size());
  std::copy(bytes.begin(), bytes.end(), room.begin());
  cutter.Commit(bytes.size());
}

TEST(RecordCutter, DecodesAStreamInPiecesOfAnySize) {
  std::string stream;
  ForEachPacketClass(11, [&](const Packet& packet) { stream += Record(packet); });
  for (const std::size_t piece : {1u, 7u, 1000u}) {
    RecordCutter cutter;
    std::string cut;
    for (std::size_t at = 0; at < stream.size(); at += piece) {
      Feed(cutter, stream.substr(at, piece));
      RecordCutter::Result result = cutter.Next();
      for (; result.outcome == Outcome::Cut; result = cutter.Next()) cut += Record(*result.packet);
      ASSERT_EQ(result.outcome, Outcome::Incomplete) << at;
    }
    EXPECT_EQ(cut, stream);
  }
}

TEST(RecordCutter, GivesUpOnlyOnBytesThatCannotBecomeARecord) {
  const std::pair<std::string, Outcome> cases[] = {
      {"", Outcome::Incomplete},
      {{0, 0, 0x7F}, Outcome::Incomplete},
      {{0, 0, 0x7E}, Outcome::Broken},
      {"GET", Outcome::Broken},
      {ForgedRecord(400, 11), Outcome::Broken},
      {ForgedRecord(400, 16384), Outcome::Incomplete},
      {ForgedRecord(400, 16385), Outcome::Broken},
      {ForgedRecord(400, 0xFFFFFFFF), Outcome::Broken},
      {ForgedRecord(400, 12), Outcome::Broken},  // whole, but no chat line fits in it
      {ForgedRecord(405, 12), Outcome::Cut},
  };
  for (const auto& [bytes, outcome] : cases) {
    RecordCutter cutter;
    Feed(cutter, Record(PacketQuit()) + bytes);
    EXPECT_EQ(cutter.Next().outcome, Outcome::Cut) << "the good record before";
    EXPECT_EQ(cutter.Next().outcome, outcome) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace tolva::test
