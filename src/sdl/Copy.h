#pragma once

#include <SDL.h>

#include "sdl/Rect.h"

namespace tolva {

// Copying pictures, pixel for pixel what SDL's own blit gives, clipped to both surfaces and to the target's clip
// rectangle. Between surfaces in the client's usual format, 16 bits a pixel, the rows are copied here: SDL's opaque
// copy takes up to seven times as long where the target's x is no multiple of 4, and its color-keyed one branches at
// each pixel. All other surfaces are left to SDL.

// Copies `part` of `from` to (x, y) in `to`. False when SDL fails or a surface is null; it is no failure when nothing
// is left to copy.
bool CopyPart(SDL_Surface* from, const Rect& part, SDL_Surface* to, int x, int y);
// Copies all of `from`.
bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y);

// What is left of a copy after clipping: `source` goes to (x, y). Empty when nothing is.
struct ClippedCopy {
  Rect source;
  int x = 0;
  int y = 0;
};
ClippedCopy ClipCopy(const SDL_Surface& from, const Rect& part, const SDL_Surface& to, int x, int y);

// Whether the pixels of `from` go to `to` as they are, 16 bits each, without SDL's help. Such a copy leaves out those
// of the color key, if there is one.
bool HaveCommonPixels(const SDL_Surface& from, const SDL_Surface& to);

}  // namespace tolva
