#include "server/DayClock.h"

#include <algorithm>

namespace tolva {
namespace {

constexpr double kDuskBegins = 0.25;
constexpr double kDawnBegins = 0.65;
constexpr double kTwilightLength = 0.15;

// The part of the twilight beginning at `begin` that has passed: 0 before it, 1 after it.
double GetElapsed(double partOfDay, double begin) {
  return std::clamp((partOfDay - begin) / kTwilightLength, 0.0, 1.0);
}

}  // namespace

std::uint8_t DayClock::GetDarkness(TimePoint now) const {
  const Duration sinceNoon = (now - mNoon) % mDayLength;
  const double partOfDay = static_cast<double>(sinceNoon.count()) / static_cast<double>(mDayLength.count());
  const double night = GetElapsed(partOfDay, kDuskBegins) - GetElapsed(partOfDay, kDawnBegins);
  return static_cast<std::uint8_t>(kDarknessDay + night * (kDarknessNight - kDarknessDay));
}

}  // namespace tolva
