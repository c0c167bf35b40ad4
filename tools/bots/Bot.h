#pragma once

#include <asio/ip/tcp.hpp>
#include <deque>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <unordered_map>

#include "protocol/RecordDecoder.h"
#include "tools/bots/MoveBook.h"

namespace tolva {

// A player without a screen, who logs in, enters the world and walks at the pace of a real client: it pauses for a
// tenth of a second after each packet, requests the areas around it, and takes a step when the last one has ended. It
// prefers fields where it has not been and keeps away from others, so that the bots spread over the land.
class Bot {
 public:
  // The book must outlive the bot. The bot must live as long as the context runs.
  Bot(asio::io_context& context, int number, MoveBook& book);

  void Connect(const asio::ip::tcp::endpoint& server);
  // To be called a hundred times a second.
  void Tick(TimePoint now);
  // Closes the connection; this does not count as a loss.
  void Stop();

  bool IsInWorld() const { return mIsInWorld; }
  // Why the connection ended early; empty when it did not.
  const std::string& GetLoss() const { return mLoss; }

 private:
  void Read();
  void Take(const Packet& packet, TimePoint now);
  void EnterWorld(WorldPoint point);
  void TakeMove(WorldPoint from, Direction direction, TimePoint now);
  // Calls `action` with a point in each area of the map around the bot.
  template <typename Action>
  void ForMapAreas(Action&& action) const;
  void AskForArea(WorldPoint inArea);
  void AskForNewEdge(WorldPoint before);
  void Walk(TimePoint now);
  Direction ChooseDirection();
  double Random();
  void Queue(const Packet& packet) { mQueued.emplace_back(packet.Clone()); }
  void SendNext(TimePoint now);
  void Write(const Packet& packet);
  void Lose(const std::string& why);

  asio::ip::tcp::socket mSocket;
  const std::string mName;
  MoveBook& mBook;
  std::minstd_rand mRandom;
  RecordDecoder mDecoder;
  std::deque<std::unique_ptr<Packet>> mQueued;
  bool mIsConnected = false;
  bool mIsInWorld = false;
  bool mIsStopped = false;
  std::string mLoss;

  WorldPoint mOwn;
  std::set<WorldPoint> mOthers;
  int mAreasAwaited = 0;
  // How often it has come to each field, and been refused there.
  std::unordered_map<WorldPoint, int, WorldPointHash> mVisits;
  // Where it wants to go, as an angle in radians.
  double mHeading;
  Direction mDirection = Direction::None;
  // Whether a step has been requested and not answered.
  bool mIsAsking = false;
  TimePoint mAskedAt;
  TimePoint mStandsFrom;
  TimePoint mNextPacket;
  TimePoint mNextPing;
  TimePoint mNextLine;
};

}  // namespace tolva
