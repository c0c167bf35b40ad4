#pragma once

#include <cstdint>

#include <SDL.h>

#include "media/Archive.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The bar that the game screen shows instead of the world while the map is synchronized. Display thread only.
class SyncProgress {
 public:
  // Loads the pictures; `archive` is not needed afterwards. What is missing is not drawn.
  explicit SyncProgress(Archive& archive);

  // `maximum` 0 means that no synchronization runs.
  void Set(std::uint16_t value, std::uint16_t maximum);
  bool IsRunning() const { return mMaximum != 0; }

  // Fills the window. Only while a synchronization runs.
  void Blit(SDL_Surface& window) const;

 private:
  const SurfacePtr mFrame;
  const SurfacePtr mBar;
  std::uint16_t mValue = 0;
  std::uint16_t mMaximum = 0;
};

}  // namespace tolva
