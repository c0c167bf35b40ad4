#include "foundation/Ticks.h"

#include <atomic>

#include <SDL.h>

namespace tolva {
namespace {

std::atomic<std::uint32_t (*)()> sSource{nullptr};

}  // namespace

std::uint32_t GetTicks() {
  const auto source = sSource.load(std::memory_order_relaxed);
  return source == nullptr ? SDL_GetTicks() : source();
}

void SetTickSource(std::uint32_t (*source)()) { sSource.store(source, std::memory_order_relaxed); }

}  // namespace tolva
