#pragma once

#include <cstdint>

#include "server/common/ServerTime.h"

namespace tolva {

constexpr std::uint8_t kDarknessDay = 0;
constexpr std::uint8_t kDarknessNight = 200;

// The times of day. A day begins at noon: bright until a quarter of it has gone, dusk until 40 %, night until
// 65 %, dawn until 80 %, bright again until the next noon. Dusk and dawn change evenly.
class DayClock {
 public:
  // `dayLength` above zero.
  DayClock(TimePoint noon, Duration dayLength) : mNoon(noon), mDayLength(dayLength) {}

  // The darkness at `now`, not before the first noon: kDarknessDay to kDarknessNight.
  std::uint8_t GetDarkness(TimePoint now) const;

 private:
  TimePoint mNoon;
  Duration mDayLength;
};

}  // namespace tolva
