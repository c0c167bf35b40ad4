#pragma once

#include <cstdint>

#include <SDL.h>

#include "media/Archive.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The bar along the bottom of the game screen and the two framed strips below it; the right one shows the round-trip
// time. A missing picture leaves its part black. Display thread only.
class BottomStrip {
 public:
  static constexpr int kHeight = 36;  // bar and strips

  // Both stay the caller's; `window` must outlive the strip. Throws an Error when SDL cannot make the surfaces.
  BottomStrip(Archive& archive, SDL_Surface& window);

  // Shows a blue pixel for each millisecond modulo 65536, as many as fit.
  void ShowRoundTrip(std::uint32_t milliseconds);

  void BlitBar();
  void BlitStrips();

 private:
  SDL_Surface& mWindow;
  SurfacePtr mBar;
  SurfacePtr mLeft;
  SurfacePtr mLeftFrame;
  SurfacePtr mRight;
  SurfacePtr mRightFrame;
};

}  // namespace tolva
