#include <gtest/gtest.h>

#include "protocol/RecordCutter.h"
#include "support/PacketSamples.h"

namespace tolva::test {
namespace {

using Outcome = RecordCutter::Outcome;

void Feed(RecordCutter& cutter, const std::vector<std::uint8_t>& bytes) {
  const auto room = cutter.Room();
  ASSERT_GE(room.size(), bytes.size());
  std::copy(bytes.begin(), bytes.end(), room.begin());
  cutter.Commit(bytes.size());
}

TEST(RecordCutter, AStreamInAnyPiecesGivesItsPacketsInOrder) {
  std::vector<std::uint8_t> stream;
  ForEachPacketClass([&](auto tag) {
    typename decltype(tag)::Type packet;
    FillPacket(packet, 11);
    const WireRecord record(packet);
    stream.insert(stream.end(), record.bytes.begin(), record.bytes.end());
  });
  for (const std::size_t piece : {1u, 7u, 1000u}) {
    RecordCutter cutter;
    std::vector<PacketCode> codes;
    for (std::size_t at = 0; at < stream.size(); at += piece) {
      Feed(cutter, {&stream[at], &stream[at] + std::min(piece, stream.size() - at)});
      RecordCutter::Result result = cutter.Next();
      for (; result.outcome == Outcome::Cut; result = cutter.Next()) codes.push_back(result.packet->mEnmCode);
      ASSERT_EQ(result.outcome, Outcome::Incomplete) << at;
    }
    EXPECT_EQ(codes.size(), AllPackets::kSize);
    EXPECT_EQ(codes.back(), PacketMusicStop::kCode);
    EXPECT_EQ(cutter.GetHeldCount(), 0u);
  }
}

TEST(RecordCutter, GivesUpOnlyOnBytesThatCanNeverBecomeARecord) {
  const auto header = [](std::uint32_t magic, std::uint32_t code, std::uint32_t length) {
    std::vector<std::uint8_t> bytes(12);
    StoreBig32(&bytes[0], magic);
    StoreBig32(&bytes[4], code);
    StoreBig32(&bytes[8], length);
    return bytes;
  };
  struct Case {
    std::vector<std::uint8_t> bytes;
    Outcome outcome;
  };
  const Case cases[] = {
      {{}, Outcome::Incomplete},
      {{0, 0, 0x7F}, Outcome::Incomplete},
      {{0, 0, 0x7E}, Outcome::Broken},
      {{'G', 'E', 'T'}, Outcome::Broken},
      {header(kProtocolMagic, 400, 11), Outcome::Broken},
      {header(kProtocolMagic, 400, 16384), Outcome::Incomplete},
      {header(kProtocolMagic, 400, 16385), Outcome::Broken},
      {header(kProtocolMagic, 400, 0xFFFFFFFF), Outcome::Broken},
      {header(kProtocolMagic, 400, 12), Outcome::Broken},  // whole, but no chat line fits in it
      {header(kProtocolMagic, 405, 12), Outcome::Cut},
  };
  for (const Case& test : cases) {
    RecordCutter cutter;
    Feed(cutter, WireRecord(PacketQuit()).bytes);
    Feed(cutter, test.bytes);
    EXPECT_EQ(cutter.Next().outcome, Outcome::Cut) << "the good record before";
    EXPECT_EQ(cutter.Next().outcome, test.outcome) << &test - cases;
  }
}

}  // namespace
}  // namespace tolva::test
