#pragma once

#include <SDL.h>

#include "sdl/Rect.h"

namespace tolva::plain {

// Copies as tolva::CopyPart does, always by SDL's own blit.
bool CopyPart(SDL_Surface* from, const Rect& part, SDL_Surface* to, int x, int y);
bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y);

}  // namespace tolva::plain
