#include <set>

#include <gtest/gtest.h>

#include "support/Records.h"

namespace tolva::test {
namespace {

TEST(Packet, EveryClassIsCreatedAndClonedAsItself) {
  std::set<PacketCode> codes;
  ForEachPacketClass(7, [&]<typename T>(T& packet) {
    SCOPED_TRACE(T::kName);
    EXPECT_TRUE(codes.insert(T::kCode).second);
    EXPECT_NE(PacketCast<T>(CreatePacket(T::kCode).get()), nullptr);
    packet.mObjSource = reinterpret_cast<Mailbox*>(0x1234);
    const std::unique_ptr<Packet> clone(packet.Clone());
    EXPECT_NE(PacketCast<T>(clone.get()), nullptr);
    EXPECT_EQ(Record(*clone), Record(packet));
    EXPECT_EQ(clone->mObjSource, packet.mObjSource);
  });
  for (const PacketCode code : {10u, 19u, 20u, 405u, 0xFFFFFFFFu}) EXPECT_EQ(CreatePacket(code), nullptr) << code;
}

TEST(Packet, AClaimedCodeNeverLeadsToAnotherClass) {
  ForEachPacketClass(1, []<typename T>(const T&) {
    const ReadRecord read(FalseClaim(T::kCode));
    ASSERT_EQ(read.packet->mEnmCode, T::kCode);
    const bool isPlain = T::kCode == Packet::kCode;
    EXPECT_EQ(PacketCast<T>(read.packet.get()) != nullptr, isPlain) << T::kName;
    const std::unique_ptr<Packet> clone(read.packet->Clone());
    EXPECT_EQ(PacketCast<T>(clone.get()) != nullptr, isPlain) << T::kName;
    EXPECT_EQ(Record(*read.packet).size(), isPlain ? 16u : kHeaderSize) << T::kName;
  });
}

TEST(Packet, LongTextsAreCutToTheirFields) {
  const std::string text(2000, 'x');
  EXPECT_EQ(std::strlen(PacketChatMsg(text.c_str(), text.c_str()).mStrUser), 31u);
  EXPECT_EQ(std::strlen(PacketChatMsg(text.c_str(), text.c_str()).mStrMsg), 1023u);
}

}  // namespace
}  // namespace tolva::test
