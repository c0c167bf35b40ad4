#include "foundation/LogRateLimiter.h"

#include <utility>

#include "foundation/InfoHandler.h"
#include "foundation/Ticks.h"

namespace tolva {
namespace {

constexpr std::uint32_t kSecondMs = 1000;

}  // namespace

bool LogRateLimiter::Admit(InfoHandler& log) {
  const std::lock_guard lock(mMutex);
  const std::uint32_t now = GetTicks();
  if (HasRoom(now)) {
    mTicks[mCount++ % kMaxLinesPerSecond] = now;
    return true;
  }
  if (!std::exchange(mHasReported, true)) {
    log.HandleInfo(new Info("Too many lines of one kind: some are left out from here on", InfoLevel::Failure));
  }
  return false;
}

bool LogRateLimiter::HasRoom(std::uint32_t now) const {
  if (mCount >= kMaxLinesPerRun) return false;
  return mCount < kMaxLinesPerSecond || now - mTicks[mCount % kMaxLinesPerSecond] >= kSecondMs;
}

}  // namespace tolva
