#pragma once

#include <SDL.h>

#include "sdl/Rect.h"

namespace tolva {

// Copies `part` of `from` to (x, y) in `to`, clipped to both surfaces. False when SDL fails or a surface is null; it is
// no failure when nothing is left to copy.
bool CopyPart(SDL_Surface* from, const Rect& part, SDL_Surface* to, int x, int y);
// Copies all of `from`.
bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y);

}  // namespace tolva
