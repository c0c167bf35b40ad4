#pragma once

#include <asio/ip/tcp.hpp>
#include <deque>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <unordered_map>

#include "protocol/RecordCutter.h"
#include "tools/bots/MoveBook.h"

namespace tolva {

// A player without a screen, who logs in, enters the world and walks about at the pace of a real client: it pauses a
// tenth of a second after each packet, asks for the areas around it, and takes a step when the last one has ended. It
// roams where it has not been and keeps away from others, so that after a while the bots are spread over the land.
class Bot {
 public:
  // The book must outlive the bot, and the bot all that runs on the context.
  Bot(asio::io_context& context, int number, MoveBook& book);

  void Connect(const asio::ip::tcp::endpoint& server);
  // To be called a hundred times a second.
  void Tick(TimePoint now);
  // The end that was meant: what comes now is no loss.
  void Stop();

  bool IsInWorld() const { return mIsInWorld; }
  // Why the connection ended early; empty when it did not.
  const std::string& GetLoss() const { return mLoss; }

 private:
  void Read();
  void Take(const Packet& packet, TimePoint now);
  void TakePosition(WorldPoint point);
  void TakeMove(WorldPoint from, Direction direction, TimePoint now);
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
  RecordCutter mCutter;
  std::deque<std::unique_ptr<Packet>> mQueued;
  bool mIsConnected = false;
  bool mIsInWorld = false;
  bool mIsStopped = false;
  std::string mLoss;

  WorldPoint mOwn;
  std::set<WorldPoint> mOthers;
  int mAreasAwaited = 0;
  // How often it came to each field, or could not.
  std::unordered_map<WorldPoint, int, WorldPointHash> mVisits;
  // Where it would like to go, as an angle.
  double mHeading;
  Direction mDirection = Direction::None;
  bool mIsAsking = false;
  TimePoint mAskedAt;
  TimePoint mStandsFrom;
  TimePoint mNextPacket;
  TimePoint mNextPing;
  TimePoint mNextLine;
};

}  // namespace tolva
