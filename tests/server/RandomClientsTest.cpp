#include <algorithm>
#include <random>

#include "server/ChatText.h"
#include "server/CoreFixture.h"

namespace tolva::test {
namespace {

class RandomClients : public CoreFixture {
 protected:
  std::size_t Below(std::size_t bound) { return mRandom() % bound; }
  std::string MakeText(std::size_t longest) {
    // Seldom used characters come often, so that few texts are ordinary.
    static constexpr char kOdd[] = "a A/*[\n\x1B\x7F\xA0\xAD\xE4\xC4%";
    std::string text(Below(longest + 1), '\0');
    for (char& character : text) character = kOdd[Below(sizeof kOdd - 1)];
    return text;
  }
  void ActOnce() {
    if (mClients.size() < 2 || Below(10) == 0) Connect();
    // Any but the first, which is the good one.
    const std::size_t place = 1 + Below(mClients.size() - 1);
    FakeClient& client = *std::next(mClients.begin(), static_cast<std::ptrdiff_t>(place));
    switch (Below(8)) {
      case 0:
      case 1:
        return Request(client, MakeText(6).c_str());
      case 2:
      case 3:
        return Say(client, std::string("/me ") + MakeText(1100));
      case 4:
        return Say(client, MakeText(1100));
      case 5:
        if (const auto packet = CreatePacket(static_cast<PacketCode>(Below(1010)))) Deliver(client, *packet);
        return;
      case 6:
        if (Below(4) == 0) mCore->Disconnect(client.GetId(), "test", mNow);
        return;
      default:
        mNow += milliseconds(Below(2000));
        mCore->Tick(mNow);
    }
  }
  using milliseconds = std::chrono::milliseconds;
  std::mt19937 mRandom{20260623};
};

TEST_F(RandomClients, NeverBreakWhatTheOthersSee) {
  FakeClient& good = LogIn("Good One");
  std::vector<std::string> names;
  for (int round = 0; round < 20000; ++round) {
    ActOnce();
    Deliver(good, PacketInternPing(1));
    if (round % 200 != 0) continue;
    Pass(std::chrono::seconds(1));
    ASSERT_FALSE(good.IsClosed()) << round;
    if (!good.All<PacketChatUsers>().empty()) names = good.GetList();
    std::vector<std::string> folded;
    for (const std::string& name : names) folded.push_back(FoldCase(name));
    ASSERT_TRUE(std::is_sorted(folded.begin(), folded.end())) << round;
    ASSERT_EQ(std::adjacent_find(folded.begin(), folded.end()), folded.end()) << "a name twice, round " << round;
    ASSERT_EQ(std::count(names.begin(), names.end(), "Good One"), 1);
    for (const PacketChatMsg* line : good.All<PacketChatMsg>()) {
      const std::string text = line->mStrMsg;
      ASSERT_TRUE(std::none_of(text.begin(), text.end(), IsInvisible)) << Quote(text);
      ASSERT_TRUE(*line->mStrUser != '\0' && !IsAllBlank(text));
    }
    good.Forget();
    mClients.remove_if([&](const FakeClient& client) { return client.IsClosed(); });
    Say(good, "still here");
    ASSERT_EQ(good.LastLine(), "Good One|still here");
  }
}

}  // namespace
}  // namespace tolva::test
