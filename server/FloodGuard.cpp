#include "server/FloodGuard.h"

namespace tolva {

FloodGuard::FloodGuard(std::size_t limit, Duration window) : mLimit(limit), mWindow(window) {}

bool FloodGuard::Allow(TimePoint now) {
  if (mPassed.size() < mLimit) {
    mPassed.push_back(now);
    return true;
  }
  if (now - mPassed[mNext] < mWindow) return false;
  mPassed[mNext] = now;
  mNext = (mNext + 1) % mLimit;
  return true;
}

bool FloodGuard::HasRoomFor(std::size_t count, TimePoint now) const {
  if (mPassed.size() + count <= mLimit) return true;
  if (count > mLimit) return false;
  // The newest of those that would have to make room.
  const std::size_t last = mPassed.size() + count - mLimit - 1;
  return now - mPassed[(mNext + last) % mLimit] >= mWindow;
}

}  // namespace tolva
