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

}  // namespace tolva
