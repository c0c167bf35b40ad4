#include "foundation/Ticks.h"

#include <atomic>
#include <chrono>

namespace tolva {
namespace {

using Clock = std::chrono::steady_clock;

const Clock::time_point kProcessStart = Clock::now();

std::uint32_t GetProcessTicks() {
  using std::chrono::milliseconds;
  return static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(Clock::now() - kProcessStart).count());
}

std::atomic<std::uint32_t (*)()> sSource{nullptr};

}  // namespace

std::uint32_t GetTicks() {
  const auto source = sSource.load(std::memory_order_relaxed);
  return source == nullptr ? GetProcessTicks() : source();
}

void SetTickSource(std::uint32_t (*source)()) { sSource.store(source, std::memory_order_relaxed); }

}  // namespace tolva
