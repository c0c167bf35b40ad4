#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "foundation/ManagerThread.h"
#include "protocol/ChatPackets.h"
#include "protocol/InternPackets.h"
#include "support/TempDir.h"
#include "support/WaitUntil.h"

namespace tolva::test {
namespace {

TEST(Mail, ComesOutInItsOrderAndCarriesItsSender) {
  Mailbox own, target;
  ManagerThread sender(&own);
  Packet* const first = new PacketQuit;
  Packet* const second = new PacketQuit;
  EXPECT_TRUE(target.Put(first));
  EXPECT_TRUE(sender.SendMail(&target, second));
  EXPECT_EQ(target.GetCount(), 2u);

  const std::unique_ptr<Packet> one(target.Get()), two(target.Get());
  EXPECT_EQ(one.get(), first);
  EXPECT_EQ(one->mObjSource, nullptr);
  EXPECT_EQ(two.get(), second);
  EXPECT_EQ(two->mObjSource, &own);
  EXPECT_EQ(target.Get(), nullptr);
  EXPECT_EQ(target.GetCount(), 0u);
  EXPECT_FALSE(sender.SendMail(nullptr, one.get()));
}

TEST(Mail, LeftInAMailboxGoesWithIt) {
  int destroyed = 0;
  struct Counted : Packet {
    explicit Counted(int& counter) : mCounter(counter) {}
    ~Counted() override { ++mCounter; }
    int& mCounter;
  };
  {
    Mailbox mailbox;
    mailbox.Put(new Counted(destroyed));
    mailbox.Put(new Counted(destroyed));
  }
  EXPECT_EQ(destroyed, 2);
}

TEST(Mail, OfManySendersLosesNothingAndKeepsEachOrder) {
  constexpr std::uint32_t kEach = 2000;
  Mailbox mailbox;
  const auto send = [&](std::uint32_t first) {
    for (std::uint32_t i = 0; i < kEach; ++i) mailbox.Put(new PacketInternPing(first + i));
  };
  const std::jthread a(send, 0), b(send, kEach);
  std::uint32_t next[] = {0, kEach};
  const bool all = WaitUntil([&] {
    while (const std::unique_ptr<Packet> packet{mailbox.Get()}) {
      const auto* ping = PacketCast<PacketInternPing>(packet.get());
      const int sender = ping->mUintTick < kEach ? 0 : 1;
      EXPECT_EQ(ping->mUintTick, next[sender]++);
    }
    return next[0] + next[1] == 3 * kEach;
  });
  EXPECT_TRUE(all);
}

// Fails on every chat line and ends with a quit.
class FailingThread final : public ManagerThread {
 public:
  explicit FailingThread(Mailbox* mailbox) : ManagerThread(mailbox) { Start(); }
  void Run() override {
    RunPasses("FailingThread", 1, [&] { HandleMyMailbox(); });
  }
  void HandleMyMailbox() override {
    const std::unique_ptr<Packet> packet(FetchMail());
    if (PacketCast<PacketQuit>(packet.get()) != nullptr) mRunning = false;
    if (PacketCast<PacketChatMsg>(packet.get()) != nullptr) throw std::runtime_error("a bad line");
  }
};

TEST(ThreadLoop, SurvivesAFailingPassAndReportsIt) {
  const TempDir dir;
  Mailbox mailbox;
  FailingThread thread(&mailbox);
  mailbox.Put(new PacketChatMsg);
  mailbox.Put(new PacketQuit);
  thread.WaitThread(nullptr);
  thread.WaitThread(nullptr);  // a second wait returns at once
  EXPECT_EQ(mailbox.GetCount(), 0u);
  EXPECT_NE(ReadFile("log.clf").find("in Module FailingThread - Method Run"), std::string::npos);
}

}  // namespace
}  // namespace tolva::test
