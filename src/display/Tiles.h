#pragma once

#include <SDL.h>

#include "sdl/SdlCalls.h"

namespace tolva {

// A picture laid again and again over a surface, from its start to its end. Without the picture nothing is laid.

inline void TileAcross(SDL_Surface* picture, SDL_Surface& target) {
  if (picture == nullptr || picture->w == 0) return;
  for (int x = 0; x < target.w; x += picture->w) CopyWhole(picture, &target, x, 0);
}

inline void TileDown(SDL_Surface* picture, SDL_Surface& target, int x) {
  if (picture == nullptr || picture->h == 0) return;
  for (int y = 0; y < target.h; y += picture->h) CopyWhole(picture, &target, x, y);
}

}  // namespace tolva
