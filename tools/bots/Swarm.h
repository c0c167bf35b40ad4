#pragma once

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <memory>
#include <string>
#include <vector>

#include "tools/bots/Bot.h"

namespace tolva {

struct SwarmOptions {
  std::string host = "127.0.0.1";
  std::uint16_t port = 7623;
  int count = 16;
  // How long to measure, and how long the bots walk apart before that, in seconds.
  int seconds = 30;
  int spread = 20;
};

// Many bots on one event loop, and what they have measured by one clock.
class Swarm {
 public:
  explicit Swarm(const SwarmOptions& options) : mOptions(options) {}

  // Returns when the time is over; false at once when the host has no address.
  bool Run();
  // Prints the results; true when no bot was lost and some moved.
  bool Report() const;

 private:
  void Tick();
  bool AreAllInWorld() const;

  SwarmOptions mOptions;
  asio::io_context mContext{1};
  asio::steady_timer mTimer{mContext};
  asio::ip::tcp::endpoint mServer;
  MoveBook mBook;
  std::vector<std::unique_ptr<Bot>> mBots;
  TimePoint mNextBot;
  // When all bots were in the world, or their time for that was over.
  TimePoint mSpreadFrom = TimePoint::max();
  TimePoint mGiveUpAt;
  bool mIsMeasuring = false;
};

}  // namespace tolva
