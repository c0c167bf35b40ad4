#pragma once

#include <SDL.h>

namespace tolva::plain {

// Darkens `source` into `target`, both in the display's format: lays a black veil over a copy and then `mask`, which
// restores the see-through pixels.
void Darken(SDL_Surface& source, SDL_Surface& mask, SDL_Surface& target, Uint8 darkness);

}  // namespace tolva::plain
