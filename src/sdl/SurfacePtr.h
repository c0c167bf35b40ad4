#pragma once

#include <memory>

#include <SDL.h>

namespace tolva {

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

// Owns one SDL surface. Never for the video surface, which is SDL's own.
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

}  // namespace tolva
