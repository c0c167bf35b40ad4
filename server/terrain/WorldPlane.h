#pragma once

#include <cstdint>

#include "protocol/FieldPosition.h"

namespace tolva {

// The world as one plane: fields counted through all areas and regions. Both axes wrap at kWorldEdge, which is where
// region numbers do; calculations may leave the range by less than one round.
constexpr int kRegionFields = 192;
constexpr std::int64_t kWorldEdge = std::int64_t{kRegionFields} << 32;

// A place of the plane: a field, or the western corner of that field.
struct PlanePoint {
  std::int64_t x = 0;
  std::int64_t y = 0;
};

constexpr std::int64_t WrapPlane(std::int64_t value) {
  if (value < 0) return value + kWorldEdge;
  return value < kWorldEdge ? value : value - kWorldEdge;
}

constexpr PlanePoint FirstFieldOf(const AreaPosition& area) {
  constexpr std::int64_t edge = kAreaEdge;
  return {std::int64_t{area.mUintRx} * kRegionFields + area.mByAx * edge,
          std::int64_t{area.mUintRy} * kRegionFields + area.mByAy * edge};
}

// On level 0.
constexpr FieldPosition FieldAt(PlanePoint point) {
  const auto part = [](std::int64_t value, int of, int each) { return static_cast<std::uint8_t>(value / each % of); };
  const std::int64_t x = WrapPlane(point.x);
  const std::int64_t y = WrapPlane(point.y);
  FieldPosition field;
  field.mUintRx = static_cast<std::uint32_t>(x / kRegionFields);
  field.mUintRy = static_cast<std::uint32_t>(y / kRegionFields);
  field.mByAx = part(x, kRegionFields / kAreaEdge, kAreaEdge);
  field.mByAy = part(y, kRegionFields / kAreaEdge, kAreaEdge);
  field.mByFx = part(x, kAreaEdge, 1);
  field.mByFy = part(y, kAreaEdge, 1);
  return field;
}

// Chance that hangs on a seed and a place alone.
constexpr std::uint64_t MixBits(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
  return value ^ (value >> 31);
}
constexpr std::uint64_t HashOf(std::uint64_t seed, std::int64_t x, std::int64_t y) {
  constexpr std::uint64_t stride = 0x9E3779B97F4A7C15u;
  return MixBits(MixBits(seed + stride * (static_cast<std::uint64_t>(x) + 1)) + stride * static_cast<std::uint64_t>(y));
}
// 0 to below 1.
constexpr double ChanceOf(std::uint64_t hash) { return static_cast<double>(hash >> 11) * 0x1p-53; }

}  // namespace tolva
