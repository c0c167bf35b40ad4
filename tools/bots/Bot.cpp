#include "tools/bots/Bot.h"

#include <algorithm>
#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/write.hpp>
#include <cmath>
#include <numbers>

#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

using std::chrono::milliseconds;

constexpr auto kPacketPause = milliseconds(100);
constexpr auto kPingInterval = milliseconds(2500);
// A slide has 19 parts of 20 ms.
constexpr auto kSlide = milliseconds(380);
constexpr auto kStepTimeout = milliseconds(500);

constexpr const char* kLines[] = {"Nice weather here.", "Has anybody seen the pier?", "I am only walking by.",
                                  "Good day!"};

// What counts against a direction: others in sight, and fields visited before; a refusal counts as several visits.
constexpr double kShyness = 8;
constexpr double kBoredom = 0.7;
constexpr int kVisitsPerRefusal = 4;
// The average number of steps between two headings.
constexpr int kStepsPerHeading = 60;

// Each next angle falls into the largest gap between the ones before.
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
    Queue(PacketLoginRequest(mName.c_str(), "", kVersion));
    Read();
  });
}

void Bot::Tick(TimePoint now) {
  if (!mIsConnected || !mLoss.empty()) return;
  if (now >= mNextPing) {
    mNextPing = now + kPingInterval;
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
  const auto room = mDecoder.Room();
  mSocket.async_read_some(asio::buffer(room.data(), room.size()), [this](asio::error_code error, std::size_t count) {
    if (error) return Lose(error.message());
    mDecoder.Commit(count);
    const TimePoint now = Clock::now();
    for (;;) {
      const RecordDecoder::Result result = mDecoder.Next();
      if (result.outcome == RecordDecoder::Outcome::Broken) return Lose("was sent bytes that are not a record");
      if (result.outcome == RecordDecoder::Outcome::Incomplete) break;
      Take(*result.packet, now);
    }
    if (mLoss.empty()) Read();
  });
}

void Bot::Take(const Packet& packet, TimePoint now) {
  const auto countAnswer = [this](const Packet&) { --mAreasAwaited; };
  Dispatch(
      packet, [&](const PacketInternPing& ping) { Write(PacketInternPong(ping.mUintTick)); },
      [&](const PacketLoginDeny& deny) { Lose(std::string("denied: ") + deny.mStrReason); },
      [&](const PacketEnterChatAccept&) { Queue(PacketEnterGameRequest()); },
      [&](const PacketCharPosition& own) { EnterWorld(ToPoint(own)); },
      [&](const PacketAddChar& added) { mOthers.insert(ToPoint(added)); },
      [&](const PacketRemoveChar& removed) { mOthers.erase(ToPoint(removed)); },
      [&](const PacketMove& move) { TakeMove(ToPoint(move), move.mEnmDirection, now); },
      ForAnyOf<PacketAreaGround, PacketAreaVersion>(countAnswer));
  mBook.CountInSight(mOthers.size());
}

void Bot::EnterWorld(WorldPoint point) {
  mIsInWorld = true;
  mOwn = point;
  mOthers.clear();
  mAreasAwaited = kMapAreas;
  ForMapAreas([this](WorldPoint inArea) { AskForArea(inArea); });
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

void Bot::AskForArea(WorldPoint inArea) { Queue(PacketAreaVersion(AreaHeader{ToPosition(inArea), 0})); }

void Bot::AskForNewEdge(WorldPoint before) {
  ForMapAreas([&](WorldPoint inArea) {
    if (DistanceInAreas(before, inArea) > kMapCenter) AskForArea(inArea);
  });
}

template <typename Action>
void Bot::ForMapAreas(Action&& action) const {
  constexpr std::int64_t kReach = kMapCenter;
  for (std::int64_t i = -kReach; i <= kReach; ++i) {
    for (std::int64_t j = -kReach; j <= kReach; ++j) action(Moved(mOwn, i * kAreaEdge, j * kAreaEdge));
  }
}

void Bot::Walk(TimePoint now) {
  if (now >= mNextLine) {
    if (mNextLine != TimePoint()) Queue(PacketChatMsg("", kLines[mRandom() % std::size(kLines)]));
    mNextLine = now + std::chrono::seconds(20 + mRandom() % 20);
  }
  const bool isRefused = mIsAsking && now >= mAskedAt + kStepTimeout;
  if ((mIsAsking && !isRefused) || now < mStandsFrom) return;
  if (isRefused) mVisits[Next(mOwn, mDirection)] += kVisitsPerRefusal;
  mIsAsking = true;
  // No timeout until it has been sent.
  mAskedAt = TimePoint::max() - kStepTimeout;
  mDirection = ChooseDirection();
  Queue(PacketMoveRequest(mDirection));
}

Direction Bot::ChooseDirection() {
  if (mRandom() % kStepsPerHeading == 0) mHeading = Random() * 2 * std::numbers::pi;
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
  for (const Direction direction : kDirections) {
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
  // A few bytes, ten times a second, fit into the system's buffer, so this does not wait.
  asio::error_code error;
  asio::write(mSocket, asio::buffer(record.data(), length), error);
  if (error) Lose(error.message());
}

void Bot::Lose(const std::string& why) {
  if (mIsStopped || !mLoss.empty()) return;
  mLoss = mName + ' ' + why;
}

}  // namespace tolva
