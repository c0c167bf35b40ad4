#pragma once

#include <SDL.h>

#include "foundation/Error.h"

namespace tolva {

// Keeps a surface's pixels readable and writable while it lives; needed before `pixels` is used.
class PixelLock {
 public:
  // Throws an Error of `module` and `method` when SDL cannot lock the surface, which must outlive the lock.
  PixelLock(SDL_Surface* surface, const char* module, const char* method)
      : mLocked(SDL_MUSTLOCK(surface) ? surface : nullptr) {
    if (mLocked != nullptr && SDL_LockSurface(mLocked) < 0) throw new Error(module, method);
  }
  ~PixelLock() {
    if (mLocked != nullptr) SDL_UnlockSurface(mLocked);
  }
  PixelLock(const PixelLock&) = delete;
  PixelLock& operator=(const PixelLock&) = delete;

 private:
  SDL_Surface* const mLocked;  // null for a surface that needs no lock
};

}  // namespace tolva
