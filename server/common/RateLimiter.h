#pragma once

#include <cstddef>
#include <vector>

#include "server/common/ServerTime.h"

namespace tolva {

// Lets through at most `limit` events (at least 1) within any stretch of `window`.
class RateLimiter {
 public:
  RateLimiter(std::size_t limit, Duration window);

  // Lets one more event through, if it may pass now. Refused events do not count.
  bool Allow(TimePoint now);
  // Whether `count` more events, at least 1, may pass now.
  bool HasRoomFor(std::size_t count, TimePoint now) const;

 private:
  // When the last events passed: a ring as long as the limit. Once it is full, `mNext` is the oldest.
  std::vector<TimePoint> mPassed;
  std::size_t mLimit;
  std::size_t mNext = 0;
  Duration mWindow;
};

}  // namespace tolva
