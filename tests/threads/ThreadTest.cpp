#include <map>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "protocol/PacketList.h"
#include "support/Correspondent.h"
#include "support/TempDir.h"
#include "threads/ManagerThread.h"

namespace tolva::test {
namespace {

TEST(Mailbox, KeepsTheOrderOfEachSenderAndNamesIt) {
  constexpr std::uint32_t kEach = 2000;
  Mailbox senders[2];
  Correspondent reader;
  const auto send = [&](Mailbox& own) {
    ManagerThread sender(&own);
    for (std::uint32_t i = 0; i < kEach; ++i) EXPECT_TRUE(sender.SendMail(reader.GetOwn(), new PacketInternPing(i)));
  };
  const std::jthread a(send, std::ref(senders[0])), b(send, std::ref(senders[1]));
  std::map<const Mailbox*, std::uint32_t> received;
  for (std::uint32_t i = 0; i < 2 * kEach; ++i) {
    const auto packet = reader.Next();
    ASSERT_NE(packet, nullptr);
    std::uint32_t& count = received[packet->mObjSource];
    EXPECT_EQ(PacketCast<PacketInternPing>(packet.get())->mUintTick, count);
    ++count;
  }
  EXPECT_EQ(received[&senders[0]], kEach);
  EXPECT_EQ(received[&senders[1]], kEach);
}

// Fails in its first pass and ends in its second.
class FailingThread final : public ManagerThread {
 public:
  FailingThread() : ManagerThread(nullptr) { Start(); }
  void Run() override {
    RunPasses("FailingThread", 1, [&] {
      mRunning = ++mPasses < 2;
      if (mRunning) throw std::runtime_error("a failing pass");
    });
  }

  int mPasses = 0;
};

TEST(ManagerThread, ReportsAFailingPassAndGoesOn) {
  const TempDir dir;
  FailingThread thread;
  thread.WaitThread(nullptr);
  EXPECT_EQ(thread.mPasses, 2);
  EXPECT_NE(ReadFile("log.clf").find("in Module FailingThread - Method Run"), std::string::npos);
}

}  // namespace
}  // namespace tolva::test
