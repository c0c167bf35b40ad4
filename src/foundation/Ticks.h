#pragma once

#include <cstdint>

namespace tolva {

// Milliseconds since the program's start: the clock behind everything that waits, blinks, slides or is stamped. Wraps
// around after 49 days, so compare differences. Any thread.
std::uint32_t GetTicks();

// Makes GetTicks ask `source`; null goes back to a steady clock that starts with the process. The client sets SDL's
// clock before it writes its first log line; tests set one that they move by hand.
void SetTickSource(std::uint32_t (*source)());

}  // namespace tolva
