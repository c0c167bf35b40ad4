#include "plain/Darken.h"

#include "plain/Copy.h"
#include "sdl/Surface.h"

namespace tolva::plain {

void Darken(SDL_Surface& source, SDL_Surface& mask, SDL_Surface& target, Uint8 darkness) {
  CopyWhole(&source, &target, 0, 0);
  if (darkness == 0) return;
  const SurfacePtr veil = CopyForDisplay(source);
  SDL_FillRect(veil.get(), nullptr, 0);
  SDL_SetAlpha(veil.get(), SDL_SRCALPHA, darkness);
  CopyWhole(veil.get(), &target, 0, 0);
  CopyWhole(&mask, &target, 0, 0);
}

}  // namespace tolva::plain
