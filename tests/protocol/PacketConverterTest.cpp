#include <string>

#include <gtest/gtest.h>

#include "support/PacketSamples.h"

namespace tolva::test {
namespace {

std::string Hex(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  char digits[4];
  for (const std::uint8_t byte : bytes) {
    std::snprintf(digits, sizeof digits, "%02X ", byte);
    text += digits;
  }
  return text;
}

template <typename T, typename Set>
std::vector<std::uint8_t> Written(Set&& set) {
  T packet;
  set(packet);
  return WireRecord(packet).bytes;
}

TEST(PacketConverter, RecordsAreExactToTheByte) {
  EXPECT_EQ(Hex(WireRecord(Packet()).bytes), "00 00 7F 06 00 00 00 00 00 00 00 10 00 00 00 00 ");
  EXPECT_EQ(Hex(WireRecord(PacketQuit()).bytes), "00 00 7F 06 00 00 01 F4 00 00 00 0C ");
  EXPECT_EQ(Hex(Written<PacketDarkness>([](auto& p) { p.mByDarkness = 200; })),
            "00 00 7F 06 00 00 03 84 00 00 00 0D C8 ");
  EXPECT_EQ(Hex(Written<PacketLoginDeny>([](auto& p) { CopyText(p.mStrReason, "x"); })),
            "00 00 7F 06 00 00 00 CA 00 00 00 12 00 00 00 02 78 00 ");
  EXPECT_EQ(Hex(Written<PacketLoginRequest>([](auto& p) {
              CopyText(p.mStrLogin, "ab");
              CopyText(p.mStrPass, "c");
              p.mUintVersionMinor = 6;
              p.mUintVersionBugfix = 23;
            })),
            "00 00 7F 06 00 00 00 C8 00 00 00 25 00 00 00 03 61 62 00 00 00 00 02 63 00 00 00 00 06 00 17 "
            "00 00 00 00 00 00 ");
  EXPECT_EQ(Hex(Written<PacketMove>([](auto& p) {
              p.mUintRx = 0x01020304;
              p.mUintRy = 5;
              p.mByAx = 6;
              p.mByAy = 7;
              p.mByFx = 8;
              p.mByFy = 9;
              p.mByLevel = -1;
              p.mEnmDirection = Direction::East;
            })),
            "00 00 7F 06 00 00 03 53 00 00 00 1D 01 02 03 04 00 00 00 05 06 07 08 09 FF 00 00 00 02 ");
  EXPECT_EQ(WireRecord(PacketChatUsers()).bytes.size(), 178u);

  const auto ground = Written<PacketAreaGround>([](auto& p) {
    p.mUintGround.fill(0);
    p.mBySmoothness.fill(0);
    p.mUintGround[5 * 24 + 7] = 0xAABBCCDD;
    p.mBySmoothness[23 * 24 + 23] = 15;
  });
  ASSERT_EQ(ground.size(), 2920u);
  for (const std::size_t offset : {24u, 28u, 2336u, 2340u}) EXPECT_EQ(LoadBig32(&ground[offset]), 24u) << offset;
  EXPECT_EQ(LoadBig32(&ground[32 + 4 * (5 * 24 + 7)]), 0xAABBCCDDu);
  EXPECT_EQ(ground.back(), 15);
}

// One body for every class: what is written comes back, and nothing shorter does.
template <typename T>
void CheckRoundTrip(std::uint32_t seed) {
  T packet;
  FillPacket(packet, seed);
  const std::vector<std::uint8_t> bytes = WireRecord(packet).bytes;
  ASSERT_EQ(LoadBig32(&bytes[8]), bytes.size());

  const ReadResult whole = ReadRecord(bytes);
  const T* read = PacketCast<T>(whole.packet.get());
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(whole.consumed, bytes.size());
  EXPECT_TRUE(SameFields(*read, packet));

  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const ReadResult cut = ReadRecord(bytes.data(), size);
    ASSERT_NE(PacketCast<PacketInternPacketDamaged>(cut.packet.get()), nullptr) << size;
    ASSERT_EQ(cut.consumed, 0u) << size;

    // The same bytes under a header that claims to be whole.
    if (size < kHeaderSize) continue;
    std::vector<std::uint8_t> lying = bytes;
    StoreBig32(&lying[8], static_cast<std::uint32_t>(size));
    ASSERT_EQ(ReadRecord(lying).consumed, 0u) << size;
  }
}

// Whatever words stand in a record, reading stays inside it: the sanitizers watch.
template <typename T>
void CheckHostileWords(std::uint32_t seed) {
  T packet;
  FillPacket(packet, seed);
  const std::vector<std::uint8_t> bytes = WireRecord(packet).bytes;
  for (std::size_t offset = kHeaderSize; offset + 4 <= bytes.size(); offset += offset < 400 ? 1 : 97) {
    for (const std::uint32_t word : {0u, 0x7FFFFFFFu, 0xFFFFFFFFu, static_cast<std::uint32_t>(bytes.size())}) {
      std::vector<std::uint8_t> hostile = bytes;
      StoreBig32(&hostile[offset], word);
      const ReadResult read = ReadRecord(hostile);
      ASSERT_LE(read.consumed, hostile.size());
      WireRecord rewritten(*read.packet);
      ASSERT_LE(rewritten.bytes.size(), hostile.size());
    }
  }
}

TEST(PacketConverter, EveryClassSurvivesTheWireAndNothingShorterDoes) {
  ForEachPacketClass([](auto tag) {
    using T = typename decltype(tag)::Type;
    SCOPED_TRACE(T::kName);
    for (const std::uint32_t seed : {1u, 2u}) CheckRoundTrip<T>(seed);
    CheckHostileWords<T>(4);
  });
}

TEST(PacketConverter, RefusesWhatIsNotARecord) {
  std::vector<std::uint8_t> bytes = WireRecord(PacketQuit()).bytes;
  bytes[3] = 7;
  EXPECT_NE(PacketCast<PacketInternPacketDamaged>(ReadRecord(bytes).packet.get()), nullptr);

  const auto withTextLength = [](std::uint32_t length) {
    PacketKick kick;
    std::memset(kick.mStrWho, 'x', 255);
    std::vector<std::uint8_t> record = WireRecord(kick).bytes;
    record.resize(1000, 'y');
    StoreBig32(&record[8], 1000);
    StoreBig32(&record[12], length);
    return ReadRecord(record);
  };
  EXPECT_EQ(withTextLength(256).consumed, 272u);
  for (const std::uint32_t length : {0u, 255u, 257u, 984u, 985u, 0xFFFFFFF0u})
    EXPECT_EQ(withTextLength(length).consumed, 0u) << length;
}

TEST(PacketConverter, TakesOnlyTheHeaderOfAnUnknownCode) {
  std::vector<std::uint8_t> bytes = WireRecord(PacketQuit()).bytes;
  const std::vector<std::uint8_t> second = WireRecord(PacketMusicStop()).bytes;
  StoreBig32(&bytes[4], 405);
  bytes.insert(bytes.end(), second.begin(), second.end());
  const ReadResult read = ReadRecord(bytes);
  EXPECT_NE(PacketCast<Packet>(read.packet.get()), nullptr);
  ASSERT_EQ(read.consumed, 12u);
  EXPECT_NE(PacketCast<PacketMusicStop>(ReadRecord(&bytes[12], 12).packet.get()), nullptr);
}

}  // namespace
}  // namespace tolva::test
