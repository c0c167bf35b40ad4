#pragma once

#include <chrono>
#include <thread>

namespace tolva::test {

// How long a test waits for something that must happen; only a failing test waits that long.
constexpr std::chrono::seconds kPatience{20};

// Waits until `holds()` is true. False if it is not within kPatience.
template <typename Predicate>
bool WaitUntil(Predicate&& holds) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    // Leaves the processor to what is awaited.
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace tolva::test
