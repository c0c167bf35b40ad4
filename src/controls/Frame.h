#pragma once

#include <SDL.h>

namespace tolva {

// How far a frame reaches into a control, in pixels.
constexpr int kFrameWidth = 2;

// Paints a frame along the edges of `target`, from the edges of a picture of 32 by 32 pixels, which must not be null.
// The corners keep their size; what lies between them is repeated. False when SDL fails.
bool PaintFrame(SDL_Surface* picture, SDL_Surface& target);

}  // namespace tolva
