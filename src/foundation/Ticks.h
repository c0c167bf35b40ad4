#pragma once

#include <cstdint>

namespace tolva {

// Milliseconds since the program's start: the clock behind everything in the client that waits, blinks, slides or is
// stamped. Wraps around after 49 days, so compare differences. Any thread.
std::uint32_t GetTicks();

// Makes GetTicks ask `source`, or SDL again when it is null. For a clock that a test sets by hand.
void SetTickSource(std::uint32_t (*source)());

}  // namespace tolva
