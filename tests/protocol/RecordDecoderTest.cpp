#include <gtest/gtest.h>

#include "protocol/RecordDecoder.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

using Outcome = RecordDecoder::Outcome;

void Feed(RecordDecoder& decoder, const std::string& bytes) {
  const auto room = decoder.Room();
  ASSERT_GE(room.size(), bytes.size());
  std::copy(bytes.begin(), bytes.end(), room.begin());
  decoder.Commit(bytes.size());
}

TEST(RecordDecoder, DecodesAStreamInPiecesOfAnySize) {
  std::string stream;
  ForEachPacketClass(11, [&](const Packet& packet) { stream += Record(packet); });
  for (const std::size_t piece : {1u, 7u, 1000u}) {
    RecordDecoder decoder;
    std::string decoded;
    for (std::size_t at = 0; at < stream.size(); at += piece) {
      Feed(decoder, stream.substr(at, piece));
      RecordDecoder::Result result = decoder.Next();
      for (; result.outcome == Outcome::Decoded; result = decoder.Next()) decoded += Record(*result.packet);
      ASSERT_EQ(result.outcome, Outcome::Incomplete) << at;
    }
    EXPECT_EQ(decoded, stream);
  }
}

TEST(RecordDecoder, GivesUpOnlyOnBytesThatCannotBecomeARecord) {
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
      {ForgedRecord(405, 12), Outcome::Decoded},
  };
  for (const auto& [bytes, outcome] : cases) {
    RecordDecoder decoder;
    Feed(decoder, Record(PacketQuit()) + bytes);
    EXPECT_EQ(decoder.Next().outcome, Outcome::Decoded) << "the good record before";
    EXPECT_EQ(decoder.Next().outcome, outcome) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace tolva::test
