#include "foundation/LogRateLimiter.h"

#include <utility>

#include "foundation/InfoHandler.h"
#include "foundation/Ticks.h"

namespace tolva {
namespace {

constexpr std::size_t kLinesInARun = 10'000;
constexpr std::uint32_t kSecondMs = 1000;

}  // namespace

bool LogRateLimiter::Admit(InfoHandler& log) {
  bool hasRoom = false;
  bool tellsSo = false;
  {
    const std::lock_guard lock(mMutex);
    const std::uint32_t now = GetTicks();
    hasRoom = HasRoom(now);
    if (hasRoom) {
      mTicks[mCount++ % kLinesInASecond] = now;
    } else {
      tellsSo = !std::exchange(mHasToldSo, true);
    }
  }
  if (tellsSo)
    log.HandleInfo(new Info("Too many lines of one kind: some are left out from here on", InfoLevel::Failure));
  return hasRoom;
}

bool LogRateLimiter::HasRoom(std::uint32_t now) const {
  if (mCount >= kLinesInARun) return false;
  return mCount < kLinesInASecond || now - mTicks[mCount % kLinesInASecond] >= kSecondMs;
}

}  // namespace tolva
