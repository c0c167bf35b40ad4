#pragma once

#include <cstdint>

#include <SDL.h>

#include "media/Archive.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The bar along the bottom of the game screen, below which two framed strips run; the right one shows the round-trip
// time. Pictures that are missing leave their part black. Display thread only.
class BottomStrip {
 public:
  static constexpr int kHeight = 36;  // bar and strips

  // Both stay the caller's; the pictures are needed only now. Throws an Error when SDL has no room for the surfaces.
  BottomStrip(Archive& archive, SDL_Surface& window);

  // One blue pixel for each millisecond, in 16 bits; as many as fit.
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
