#include <set>

#include <gtest/gtest.h>

#include "support/PacketSamples.h"

namespace tolva::test {
namespace {

TEST(Packet, EveryClassHasItsOwnCodeAndDefaults) {
  std::set<PacketCode> codes;
  ForEachPacketClass([&](auto tag) {
    using T = typename decltype(tag)::Type;
    EXPECT_TRUE(codes.insert(T::kCode).second) << T::kName;
    const auto created = CreatePacket(T::kCode);
    ASSERT_NE(PacketCast<T>(created.get()), nullptr) << T::kName;
    EXPECT_EQ(created->mObjSource, nullptr);
  });
  EXPECT_EQ(codes.size(), 49u);
  for (const PacketCode code : {10u, 19u, 20u, 405u, 0xFFFFFFFFu}) EXPECT_EQ(CreatePacket(code), nullptr) << code;
  EXPECT_EQ(PacketMove().mEnmDirection, Direction::None);
  EXPECT_EQ(PacketMoveRequest(Direction::East).mEnmDirection, Direction::East);
}

TEST(Packet, ACloneOutlivesItsOriginal) {
  ForEachPacketClass([](auto tag) {
    using T = typename decltype(tag)::Type;
    auto original = std::make_unique<T>();
    FillPacket(*original, 7);
    original->mObjSource = reinterpret_cast<Mailbox*>(0x1234);
    T expected;
    FillPacket(expected, 7);
    expected.mObjSource = original->mObjSource;
    const std::unique_ptr<Packet> clone(original->Clone());
    original.reset();
    const T* typed = PacketCast<T>(clone.get());
    ASSERT_NE(typed, nullptr) << T::kName;
    EXPECT_TRUE(SameFields(*typed, expected)) << T::kName;
    EXPECT_EQ(clone->mObjSource, expected.mObjSource);
  });
}

TEST(Packet, AClaimedCodeNeverLeadsToAnotherClass) {
  ForEachPacketClass([](auto tag) {
    using T = typename decltype(tag)::Type;
    const ReadResult read = ReadRecord(FalseClaim(T::kCode));
    ASSERT_EQ(read.packet->mEnmCode, T::kCode);
    const bool isPlain = T::kCode == Packet::kCode;
    EXPECT_EQ(PacketCast<T>(read.packet.get()) != nullptr, isPlain) << T::kName;

    const std::unique_ptr<Packet> clone(read.packet->Clone());
    EXPECT_EQ(PacketCast<T>(clone.get()) != nullptr, isPlain) << T::kName;
    EXPECT_EQ(WireRecord(*read.packet).bytes.size(), isPlain ? 16u : kHeaderSize) << T::kName;
  });
}

TEST(Packet, LongTextsAreCutToTheirFields) {
  const std::string text(2000, 'x');
  EXPECT_EQ(std::strlen(PacketChatMsg(text.c_str(), text.c_str()).mStrUser), 31u);
  EXPECT_EQ(std::strlen(PacketChatMsg(text.c_str(), text.c_str()).mStrMsg), 1023u);
  EXPECT_EQ(std::strlen(PacketInternConnect(text.c_str(), 1).mStrHost), 255u);
}

}  // namespace
}  // namespace tolva::test
