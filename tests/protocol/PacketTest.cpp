#include <set>

#include <gtest/gtest.h>

#include "protocol/PacketDispatch.h"
#include "support/Records.h"

namespace tolva::test {
namespace {

TEST(Packet, IsCreatedAndClonedAsItsOwnClass) {
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

TEST(Packet, IsNeverCastToAClassThatItOnlyClaims) {
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

// Which handler a packet reaches: the first that takes its class, and none on a false claim.
std::string HandlerOf(Packet& packet) {
  return DispatchOr(
      std::string("none"), packet,
      [](const PacketInternPing& ping) { return "ping " + std::to_string(ping.mUintTick); },
      [](PacketQuit&) { return "quit"; }, [](const PacketQuit&) { return "quit again"; },
      ForAnyOf<PacketChatMsg, PacketDarkness>([](Packet& any) { return "any " + std::to_string(any.mEnmCode); }));
}

TEST(Packet, ReachesTheHandlerOfItsClass) {
  PacketInternPing ping(7);
  PacketDarkness darkness(1);
  PacketQuit quit;
  PacketKick kick;
  EXPECT_EQ(HandlerOf(ping), "ping 7");
  EXPECT_EQ(HandlerOf(quit), "quit");
  EXPECT_EQ(HandlerOf(darkness), "any 900");
  EXPECT_EQ(HandlerOf(kick), "none");
  EXPECT_EQ(HandlerOf(*ReadRecord(FalseClaim(PacketQuit::kCode)).packet), "none");
}

}  // namespace
}  // namespace tolva::test
