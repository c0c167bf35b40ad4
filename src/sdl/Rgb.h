#pragma once

#include <cstdint>

namespace tolva {

// A color as three values from 0 to 255.
struct Rgb {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;

  bool operator==(const Rgb&) const = default;
};

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

// The color key of control surfaces: a control with this background is see-through.
constexpr Rgb kTransparentColor{255, 0, 255};

}  // namespace tolva
