#include "server/common/RateLimiter.h"

namespace tolva {

RateLimiter::RateLimiter(std::size_t limit, Duration window) : mLimit(limit), mWindow(window) {}

bool RateLimiter::Allow(TimePoint now) {
  if (mPassed.size() < mLimit) {
    mPassed.push_back(now);
    return true;
  }
  if (now - mPassed[mNext] < mWindow) return false;
  mPassed[mNext] = now;
  mNext = (mNext + 1) % mLimit;
  return true;
}

bool RateLimiter::HasRoomFor(std::size_t count, TimePoint now) const {
  if (mPassed.size() + count <= mLimit) return true;
  if (count > mLimit) return false;
  // The newest of the events that would have to leave the window.
  const std::size_t last = mPassed.size() + count - mLimit - 1;
  return now - mPassed[(mNext + last) % mLimit] >= mWindow;
}

}  // namespace tolva
