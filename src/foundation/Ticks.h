#pragma once

#include <cstdint>

namespace tolva {

// Milliseconds since the program started, for timeouts, animations and time stamps. Wraps around after 49 days, so
// compare differences. Any thread may call it.
std::uint32_t GetTicks();

// Makes GetTicks read `source`, or, given null, a steady clock that starts with the process. The client sets SDL's
// clock before it writes its first log line; tests set a clock that they advance themselves.
void SetTickSource(std::uint32_t (*source)());

}  // namespace tolva
