#pragma once

#include <SDL.h>

#include "sdl/Rect.h"

namespace tolva {

// Repeating a picture over a surface, from the top left on; the last copies are cut at the end. A picture that is null
// or has no pixels covers nothing. False when SDL fails.

// Covers `area` of `target` with `part` of `picture`.
bool TilePart(SDL_Surface* picture, const Rect& part, SDL_Surface& target, const Rect& area);

// Covers the whole of `target`.
bool TileOver(SDL_Surface* picture, SDL_Surface& target);
// Covers a row along the top of `target`.
bool TileAcross(SDL_Surface* picture, SDL_Surface& target);
// Covers a column of `target` whose left edge is at `x`.
bool TileDown(SDL_Surface* picture, SDL_Surface& target, int x);

}  // namespace tolva
