#pragma once

#include <cstddef>
#include <vector>

#include "server/ServerTime.h"

namespace tolva {

// Lets through at most `limit` events (at least 1) within any stretch of `window`.
class FloodGuard {
 public:
  FloodGuard(std::size_t limit, Duration window);

  // Whether one more event may pass now. One that may not does not count.
  bool Allow(TimePoint now);
  // Whether so many more, at least 1, may pass now.
  bool HasRoomFor(std::size_t count, TimePoint now) const;

 private:
  // When the last events passed: a ring as long as the limit, `mNext` being the oldest once it is full.
  std::vector<TimePoint> mPassed;
  std::size_t mLimit;
  std::size_t mNext = 0;
  Duration mWindow;
};

}  // namespace tolva
