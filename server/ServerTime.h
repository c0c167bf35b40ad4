#pragma once

#include <chrono>

namespace tolva {

// The server's logic never asks for the time: whoever calls it tells it, so that tests can let days pass in no time.
using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;
using Duration = Clock::duration;

}  // namespace tolva
