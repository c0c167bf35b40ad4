#pragma once

#include <cstdint>

namespace tolva {

// A colour as three values from 0 to 255.
struct Rgb {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;

  bool operator==(const Rgb&) const = default;
};

// The colour that control surfaces do not copy: a control with this background is see-through.
constexpr Rgb kTransparentColor{255, 0, 255};

}  // namespace tolva
