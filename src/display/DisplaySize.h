#pragma once

#include <cstdint>

#include "sdl/Rect.h"

namespace tolva {

// A video mode, in pixels.
struct DisplaySize {
  std::int32_t width;
  std::int32_t height;
  bool fullScreen;

  bool operator==(const DisplaySize&) const = default;
};

// The sizes that the player can choose from. The first one serves when the settings name no other.
constexpr Size kResolutions[] = {{800, 600}, {1024, 768}, {1280, 1024}};

}  // namespace tolva
