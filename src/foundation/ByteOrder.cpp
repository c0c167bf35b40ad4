#include "foundation/ByteOrder.h"

#include <cstring>

namespace tolva {
namespace {

// Turns numbers into big-endian bytes or back, which is the same. The pointers promise that nothing overlaps, so that
// the compiler may take several numbers at once.
inline void Turn(std::uint8_t* __restrict to, const std::uint8_t* __restrict from, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t turned = LoadBig32(from + 4 * i);
    std::memcpy(to + 4 * i, &turned, 4);
  }
}

#if defined(__x86_64__) && defined(__GNUC__)
// The processors that every x86-64 program must run on lack the instruction that reverses the bytes of four numbers;
// nearly all in use have it.
[[gnu::target("ssse3")]] void TurnByShuffling(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  Turn(to, from, count);
}

void TurnFast(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  __builtin_cpu_supports("ssse3") != 0 ? TurnByShuffling(to, from, count) : Turn(to, from, count);
}
#else
void TurnFast(std::uint8_t* to, const std::uint8_t* from, std::size_t count) { Turn(to, from, count); }
#endif

}  // namespace

void StoreBig32s(std::uint8_t* to, const std::uint32_t* values, std::size_t count) {
  TurnFast(to, reinterpret_cast<const std::uint8_t*>(values), count);
}

void LoadBig32s(std::uint32_t* values, const std::uint8_t* from, std::size_t count) {
  TurnFast(reinterpret_cast<std::uint8_t*>(values), from, count);
}

}  // namespace tolva
