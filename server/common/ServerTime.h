#pragma once

#include <chrono>

namespace tolva {

// The server's logic never reads the clock: its callers pass the time in, so that tests can let days pass at once.
using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;
using Duration = Clock::duration;

}  // namespace tolva
