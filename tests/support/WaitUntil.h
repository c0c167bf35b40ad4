#pragma once

#include <chrono>
#include <thread>

namespace tolva::test {

// How long a test waits for what must come; only a failing test ever waits that long.
constexpr std::chrono::seconds kPatience{20};

// Waits until `holds()` is true. False when it still is not after kPatience.
template <typename Predicate>
bool WaitUntil(Predicate&& holds) {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    // Between two looks, so that waiting does not take the processor from what is awaited.
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

}  // namespace tolva::test
