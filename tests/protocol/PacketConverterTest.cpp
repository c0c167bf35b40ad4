#include <gtest/gtest.h>

#include "plain/PacketConverter.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

std::string Hex(const std::string& bytes) {
  std::string text;
  char digits[4];
  for (const char byte : bytes) {
    std::snprintf(digits, sizeof digits, "%02X ", static_cast<std::uint8_t>(byte));
    text += digits;
  }
  return text;
}

TEST(PacketConverter, RecordsAreExactToTheByte) {
  EXPECT_EQ(Hex(Record(Packet())), "00 00 7F 06 00 00 00 00 00 00 00 10 00 00 00 00 ");
  EXPECT_EQ(Hex(Record(PacketQuit())), "00 00 7F 06 00 00 01 F4 00 00 00 0C ");
  PacketLoginRequest login("ab", "c");
  static_cast<VersionNumbers&>(login) = {0, 6, 23};
  EXPECT_EQ(Hex(Record(login)),
            "00 00 7F 06 00 00 00 C8 00 00 00 25 00 00 00 03 61 62 00 00 00 00 02 63 00 00 00 00 06 00 17 "
            "00 00 00 00 00 00 ");
  EXPECT_EQ(Hex(Record(PacketMove({{0x01020304, 5, 6, 7, -1}, 8, 9}, Direction::East))),
            "00 00 7F 06 00 00 03 53 00 00 00 1D 01 02 03 04 00 00 00 05 06 07 08 09 FF 00 00 00 02 ");
  EXPECT_EQ(Record(PacketChatUsers()).size(), 178u);

  PacketAreaGround area;
  area.mUintGround.fill(0);
  area.mBySmoothness.fill(15);
  area.mUintGround[5 * 24 + 7] = 0xAABBCCDD;
  const std::string ground = Record(area);
  ASSERT_EQ(ground.size(), 2920u);
  for (const std::size_t offset : {24u, 28u, 2336u, 2340u}) EXPECT_EQ(WordAt(ground, offset), 24u) << offset;
  EXPECT_EQ(WordAt(ground, 32 + 4 * (5 * 24 + 7)), 0xAABBCCDDu);
  EXPECT_EQ(ground.back(), 15);
}

TEST(PacketConverter, ReadsEveryClassBackAndNothingShorter) {
  ForEachPacketClass(1, []<typename T>(const T& packet) {
    SCOPED_TRACE(T::kName);
    const std::string bytes = Record(packet);
    const ReadRecord whole(bytes);
    ASSERT_NE(PacketCast<T>(whole.packet.get()), nullptr);
    EXPECT_EQ(whole.consumed, bytes.size());
    EXPECT_EQ(Record(*whole.packet), bytes);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
      const std::string cut = bytes.substr(0, size);
      const ReadRecord read(cut);
      ASSERT_NE(PacketCast<PacketInternPacketDamaged>(read.packet.get()), nullptr) << size;
      ASSERT_EQ(read.consumed, 0u) << size;
      // The same bytes under a header that claims to be whole.
      if (size < kHeaderSize) continue;
      ASSERT_EQ(ReadRecord(WithWord(cut, 8, static_cast<std::uint32_t>(size))).consumed, 0u) << size;
      // The bytes of a next record do not make it whole.
      ASSERT_EQ(ReadRecord(WithWord(bytes, 8, static_cast<std::uint32_t>(size))).consumed, 0u) << size;
    }
  });
}

// A record with up to three faults: another length of the whole, small bytes and hostile words.
std::string Damaged(std::string bytes, std::minstd_rand& random) {
  if (random() % 4 == 0) bytes.resize(kHeaderSize + random() % (bytes.size() - kHeaderSize + 8));
  if (random() % 2 == 0) bytes = WithWord(bytes, 8, static_cast<std::uint32_t>(bytes.size()));
  for (std::size_t fault = random() % 4; fault > 0; --fault) {
    const std::size_t offset = 4 + random() % (bytes.size() - 7);
    const auto left = static_cast<std::uint32_t>(bytes.size() - offset);
    const std::uint32_t words[] = {0, 0xFFFFFFFF, left - 4, left - 3, static_cast<std::uint32_t>(random() % 1100)};
    const bool isByte = random() % 2 == 0;
    if (isByte) bytes[offset] = static_cast<char>(random() % 4);
    if (!isByte) bytes = WithWord(bytes, offset, words[random() % std::size(words)]);
  }
  return bytes;
}

// The sanitizers see a read beyond the record.
TEST(PacketConverter, WritesReadsAndRefusesAsThePlainWayDoes) {
  std::minstd_rand random(1);
  for (const std::uint32_t seed : {4u, 5u}) {
    ForEachPacketClass(seed, [&](const Packet& packet) {
      const std::string whole = Record(packet);
      ASSERT_EQ(whole, Record<plain::PacketConverter>(packet));
      for (int round = 0; round < 200; ++round) {
        const std::string bytes = Damaged(whole, random);
        ASSERT_EQ(ReadingBy<PacketConverter>(bytes), ReadingBy<plain::PacketConverter>(bytes)) << Hex(bytes);
      }
    });
  }
}

TEST(PacketConverter, RefusesWhatIsNotARecord) {
  EXPECT_EQ(ReadRecord(WithWord(Record(PacketQuit()), 0, kProtocolMagic + 1)).consumed, 0u);
  // The field takes 256 bytes, the record has room for more.
  const std::string text = std::string(255, 'x') + std::string(2, '\0') + std::string(727, 'y');
  for (const std::uint32_t length : {0u, 255u, 256u, 257u, 984u, 985u, 0xFFFFFFF0u}) {
    const std::string kick = ForgedRecord(PacketKick::kCode, 1000, WithWord("1234", 0, length) + text);
    EXPECT_EQ(ReadRecord(kick).consumed, length == 256 ? 272u : 0u) << length;
  }
}

TEST(PacketConverter, TakesOnlyTheHeaderOfAnUnknownCode) {
  const ReadRecord read(ForgedRecord(405, 24) + Record(PacketMusicStop()));
  EXPECT_NE(PacketCast<Packet>(read.packet.get()), nullptr);
  EXPECT_EQ(read.consumed, 12u);
}

}  // namespace
}  // namespace tolva::test
