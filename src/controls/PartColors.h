#pragma once

#include "sdl/Rgb.h"

namespace tolva {

// The colors of the buttons that windows and scrollbars bring along, until their owner gives them others.
constexpr Rgb kPartColor{214, 211, 206};
constexpr Rgb kPressedPartColor{132, 130, 132};

}  // namespace tolva
