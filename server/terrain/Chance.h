#pragma once

#include <cstdint>

namespace tolva {

// Random numbers that depend on a seed and a position alone.
constexpr std::uint64_t MixBits(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
  return value ^ (value >> 31);
}
constexpr std::uint64_t HashOf(std::uint64_t seed, std::int64_t x, std::int64_t y) {
  constexpr std::uint64_t kStride = 0x9E3779B97F4A7C15u;
  return MixBits(MixBits(seed + kStride * (static_cast<std::uint64_t>(x) + 1)) +
                 kStride * static_cast<std::uint64_t>(y));
}
// 0 to below 1.
constexpr double ChanceOf(std::uint64_t hash) { return static_cast<double>(hash >> 11) * 0x1p-53; }

}  // namespace tolva
