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
  // How long is measured, and how long the bots walk apart before that.
  int seconds = 30;
  int spread = 20;
};

// Many bots on one event loop, and what they went through. One clock serves them all.
class Swarm {
 public:
  explicit Swarm(const SwarmOptions& options) : mOptions(options) {}

  // Returns when the time is over; false when no address belongs to the host.
  bool Run();
  // What happened, on standard output; whether all went well.
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
  // When all bots had come in, or were given up; never at first.
  TimePoint mSpreadFrom = TimePoint::max();
  TimePoint mGiveUpAt;
  bool mIsMeasuring = false;
};

}  // namespace tolva
