#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "client/MusicOrders.h"
#include "client/RequestQueue.h"
#include "protocol/InternPackets.h"

namespace tolva::test {
namespace {

using Kind = RequestQueue::Kind;

struct RequestQueueTest : testing::Test {
  using Numbers = std::vector<std::uint32_t>;

  void Add(std::uint32_t number, Kind kind = Kind::Area) {
    queue.Add(kind, [number] { return std::make_unique<PacketInternPing>(number); });
  }
  // The numbers of the requests that are due in the milliseconds up to `end`.
  Numbers Due(std::uint32_t end, std::uint32_t unsentCount = 0) {
    Numbers numbers;
    for (; now < end; ++now) {
      const auto request = queue.TakeDue(now, unsentCount);
      if (const auto* ping = PacketCast<PacketInternPing>(request.get())) numbers.push_back(ping->mUintTick);
    }
    return numbers;
  }
  RequestQueue queue;
  std::uint32_t now = 10'000;
};

TEST_F(RequestQueueTest, WaitsForTheEndOfThePauseAndForSilence) {
  for (std::uint32_t number = 1; number < 9; ++number) Add(number);
  EXPECT_EQ(Due(10'001), Numbers{1});
  queue.NoteSent(10'000);
  EXPECT_EQ(Due(10'115), Numbers{}) << "the network thread pauses and reads nothing";
  EXPECT_EQ(Due(10'116), Numbers{2});
  EXPECT_EQ(Due(10'200, 1), Numbers{}) << "something waits to be sent; taken at 10,199";
  queue.NoteReceived(10'310);
  EXPECT_EQ(Due(10'325), Numbers{});
  EXPECT_EQ(Due(10'326), Numbers{3});
  for (; now < 10'575; ++now) {
    queue.NoteReceived(now);
    queue.NoteSent(now);
    EXPECT_EQ(queue.TakeDue(now, 0), nullptr);
  }
  EXPECT_EQ(Due(10'576), Numbers{4}) << "silence or not, a quarter of a second after the last one";
  EXPECT_EQ(Due(11'000, 1), Numbers{}) << "but never two at once";
}

TEST_F(RequestQueueTest, KeepsTheNewest256InTheirOrderUntilTheyAreDropped) {
  for (std::uint32_t number = 0; number < 300; ++number) Add(number);
  Numbers newest(256);
  std::iota(newest.begin(), newest.end(), 44);
  EXPECT_EQ(Due(200'000), newest);
  Add(1);
  Add(2, Kind::ServerVersion);
  queue.Add(Kind::Area, [] { return nullptr; });
  Add(3);
  EXPECT_EQ(Due(200'001), Numbers{1});
  queue.Discard(Kind::Area);
  queue.Add(Kind::Area, [] { return nullptr; });
  Add(4);
  EXPECT_EQ(Due(200'600), (Numbers{2, 4})) << "a request that came to nothing costs no time";
  Add(5);
  queue.Clear();
  EXPECT_EQ(Due(201'000), Numbers{});
}

TEST(MusicOrdersTest, TheNewestOrderWaitsAndTheLobbyObeysThePlayer) {
  constexpr PacketCode kPlay = PacketMusicPlay::kCode, kStop = PacketMusicStop::kCode;
  MusicOrders orders;
  const auto taken = [&](std::uint32_t waitingCount = 0) {
    const auto packet = orders.Take(waitingCount);
    return packet == nullptr ? 0 : packet->mEnmCode;
  };
  orders.EnterLobby();
  EXPECT_EQ(taken(), kPlay);
  EXPECT_EQ(taken(), 0u);
  orders.Order(PacketMusicPlay(1));
  orders.Order(PacketMusicStop());
  EXPECT_EQ(taken(1), 0u);
  EXPECT_EQ(taken(), kStop);
  orders.EnterLobby();
  EXPECT_EQ(taken(), 0u) << "the player has turned it off";
  orders.Order(PacketMusicPlay(1));
  orders.Clear();
  EXPECT_EQ(taken(), 0u);
  orders.EnterLobby();
  EXPECT_EQ(taken(), kPlay);
}

}  // namespace
}  // namespace tolva::test
