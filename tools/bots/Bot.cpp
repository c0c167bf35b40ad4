#include "tools/bots/Bot.h"

#include <algorithm>
#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/write.hpp>
#include <cmath>
#include <numbers>

#include "protocol/FieldPosition.h"
#include "protocol/PacketList.h"

namespace tolva {
namespace {

using std::chrono::milliseconds;

constexpr auto kPacketPause = milliseconds(100);
constexpr auto kPingEvery = milliseconds(2500);
// 19 slides of 20 ms.
constexpr auto kSlide = milliseconds(380);
constexpr auto kGiveUpAfter = milliseconds(500);

constexpr int kMapReach = kMapCenter;

constexpr const char* kLines[] = {"Nice weather here.", "Has anybody seen the pier?", "I am only walking by.",
                                  "Good day!"};

// How much others in sight count against the own way, a field gone over before, and one that was refused.
constexpr double kShyness = 8;
constexpr double kBoredom = 0.7;
constexpr int kRefusalCounts = 4;
// In steps, on average.
constexpr int kNewHeadingEvery = 60;

// Every next angle falls into the largest gap that those before have left.
double HeadingOf(int number) { return number * std::numbers::pi * (3 - std::sqrt(5.0)); }

}  // namespace

Bot::Bot(asio::io_context& context, int number, MoveBook& book)
    : mSocket(context),
      mName("Bot" + std::to_string(number)),
      mBook(book),
      mRandom(static_cast<std::minstd_rand::result_type>(number)),
      mHeading(HeadingOf(number)) {}

void Bot::Connect(const asio::ip::tcp::endpoint& server) {
  mSocket.async_connect(server, [this](asio::error_code error) {
    if (error) return Lose("cannot connect: " + error.message());
    asio::error_code ignored;
    mSocket.set_option(asio::ip::tcp::no_delay(true), ignored);
    mIsConnected = true;
    PacketLoginRequest request(mName.c_str(), "");
    static_cast<VersionNumbers&>(request) = kVersion;
    Queue(request);
    Read();
  });
}

void Bot::Tick(TimePoint now) {
  if (!mIsConnected || !mLoss.empty()) return;
  if (now >= mNextPing) {
    mNextPing = now + kPingEvery;
    Write(PacketInternPing(0));
  }
  if (mIsInWorld && mAreasAwaited <= 0) Walk(now);
  if (!mQueued.empty() && now >= mNextPacket) SendNext(now);
}

void Bot::Stop() {
  mIsStopped = true;
  asio::error_code ignored;
  mSocket.close(ignored);
}

void Bot::Read() {
  const auto room = mCutter.Room();
  mSocket.async_read_some(asio::buffer(room.data(), room.size()), [this](asio::error_code error, std::size_t count) {
    if (error) return Lose(error.message());
    mCutter.Commit(count);
    const TimePoint now = Clock::now();
    for (;;) {
      const RecordCutter::Result result = mCutter.Next();
      if (result.outcome == RecordCutter::Outcome::Broken) return Lose("was sent what is no record");
      if (result.outcome == RecordCutter::Outcome::Incomplete) break;
      Take(*result.packet, now);
    }
    if (mLoss.empty()) Read();
  });
}

void Bot::Take(const Packet& packet, TimePoint now) {
  if (const auto* ping = PacketCast<PacketInternPing>(&packet)) return Write(PacketInternPong(ping->mUintTick));
  if (const auto* deny = PacketCast<PacketLoginDeny>(&packet)) return Lose(std::string("denied: ") + deny->mStrReason);
  if (PacketCast<PacketEnterChatAccept>(&packet) != nullptr) return Queue(PacketEnterGameRequest());
  if (const auto* own = PacketCast<PacketCharPosition>(&packet)) return TakePosition(ToPoint(*own));
  if (const auto* add = PacketCast<PacketAddChar>(&packet)) mOthers.insert(ToPoint(*add));
  if (const auto* gone = PacketCast<PacketRemoveChar>(&packet)) mOthers.erase(ToPoint(*gone));
  if (const auto* move = PacketCast<PacketMove>(&packet)) TakeMove(ToPoint(*move), move->mEnmDirection, now);
  if (PacketCast<PacketAreaGround>(&packet) != nullptr || PacketCast<PacketAreaVersion>(&packet) != nullptr)
    --mAreasAwaited;
  mBook.CountInSight(mOthers.size());
}

void Bot::TakePosition(WorldPoint point) {
  mIsInWorld = true;
  mOwn = point;
  mOthers.clear();
  mAreasAwaited = kMapAreas;
  for (int i = -kMapReach; i <= kMapReach; ++i)
    for (int j = -kMapReach; j <= kMapReach; ++j) AskForArea(Moved(point, i * kAreaEdge, j * kAreaEdge));
}

void Bot::TakeMove(WorldPoint from, Direction direction, TimePoint now) {
  if (!IsDirection(direction)) return;
  const WorldPoint to = Next(from, direction);
  if (from != mOwn) {
    mBook.SeeOther(from, direction, now);
    mOthers.erase(from);
    mOthers.insert(to);
    return;
  }
  mBook.SeeOwn(from, direction, now);
  mOwn = to;
  ++mVisits[to];
  mIsAsking = false;
  mStandsFrom = now + kSlide;
  AskForNewEdge(from);
}

void Bot::AskForArea(WorldPoint inArea) {
  PacketAreaVersion question;
  static_cast<AreaPosition&>(question) = ToPosition(inArea);
  Queue(question);
}

void Bot::AskForNewEdge(WorldPoint before) {
  for (int i = -kMapReach; i <= kMapReach; ++i) {
    for (int j = -kMapReach; j <= kMapReach; ++j) {
      const WorldPoint inArea = Moved(mOwn, i * kAreaEdge, j * kAreaEdge);
      if (DistanceInAreas(before, inArea) > kMapReach) AskForArea(inArea);
    }
  }
}

void Bot::Walk(TimePoint now) {
  if (now >= mNextLine) {
    if (mNextLine != TimePoint()) Queue(PacketChatMsg("", kLines[mRandom() % std::size(kLines)]));
    mNextLine = now + std::chrono::seconds(20 + mRandom() % 20);
  }
  const bool isRefused = mIsAsking && now >= mAskedAt + kGiveUpAfter;
  if ((mIsAsking && !isRefused) || now < mStandsFrom) return;
  if (isRefused) mVisits[Next(mOwn, mDirection)] += kRefusalCounts;
  mIsAsking = true;
  // Until it has been sent.
  mAskedAt = TimePoint::max() - kGiveUpAfter;
  mDirection = ChooseDirection();
  Queue(PacketMoveRequest(mDirection));
}

Direction Bot::ChooseDirection() {
  if (mRandom() % kNewHeadingEvery == 0) mHeading = Random() * 2 * std::numbers::pi;
  double x = std::cos(mHeading), y = std::sin(mHeading);
  for (const WorldPoint& other : mOthers) {
    const auto awayX = static_cast<double>(static_cast<std::int64_t>(mOwn.x - other.x));
    const auto awayY = static_cast<double>(static_cast<std::int64_t>(mOwn.y - other.y));
    const double square = awayX * awayX + awayY * awayY;
    x += kShyness * awayX / square;
    y += kShyness * awayY / square;
  }
  const double length = std::max(std::hypot(x, y), 1e-6);
  Direction best = Direction::None;
  double bestScore = -1e9;
  for (std::uint32_t d = 0; d < kDirectionCount; ++d) {
    const auto direction = static_cast<Direction>(d);
    const Step step = StepIn(direction);
    const auto visits = mVisits.find(Next(mOwn, direction));
    const double score = (x * step.x + y * step.y) / length / std::hypot(step.x, step.y) + Random() / 2 -
                         (visits == mVisits.end() ? 0 : visits->second * kBoredom);
    if (score <= bestScore) continue;
    bestScore = score;
    best = direction;
  }
  return best;
}

double Bot::Random() { return std::uniform_real_distribution(0.0, 1.0)(mRandom); }

void Bot::SendNext(TimePoint now) {
  if (const auto* request = PacketCast<PacketMoveRequest>(mQueued.front().get())) {
    mAskedAt = now;
    mBook.Ask(mOwn, request->mEnmDirection, now);
  }
  Write(*mQueued.front());
  mQueued.pop_front();
  mNextPacket = now + kPacketPause;
}

void Bot::Write(const Packet& packet) {
  std::array<std::uint8_t, kRecordBufferSize> record;
  const std::uint32_t length = PacketConverter().WriteBuffer(record.data(), packet);
  // Some bytes, ten times a second: they fit into the system's buffer, so this does not wait.
  asio::error_code error;
  asio::write(mSocket, asio::buffer(record.data(), length), error);
  if (error) Lose(error.message());
}

void Bot::Lose(const std::string& why) {
  if (mIsStopped || !mLoss.empty()) return;
  mLoss = mName + ' ' + why;
}

}  // namespace tolva
