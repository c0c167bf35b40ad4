#pragma once

#include <memory>

#include <SDL.h>

namespace tolva {

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

// A surface with an owner. Never put the video surface into one: it belongs to SDL.
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

}  // namespace tolva
