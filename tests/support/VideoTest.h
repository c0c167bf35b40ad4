#pragma once

#include <SDL.h>
#include <gtest/gtest.h>

#include "sdl/SurfacePtr.h"

namespace tolva::test {

// A test with the video mode that the client runs in. Without a screen the dummy driver serves.
class VideoTest : public ::testing::Test {
 protected:
  VideoTest() {
    EXPECT_EQ(SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE), 0);
    mVideo = SDL_SetVideoMode(800, 600, 16, SDL_SWSURFACE);
    EXPECT_NE(mVideo, nullptr);
    SDL_FillRect(mVideo, nullptr, 0);  // the compatibility library leaves it as the last window was
  }
  ~VideoTest() override { SDL_Quit(); }

  SDL_Surface* mVideo = nullptr;
};

// The pixel of a 16-bit surface.
inline Uint16 PixelAt(const SDL_Surface* surface, int x, int y) {
  const auto* row = static_cast<const Uint8*>(surface->pixels) + y * surface->pitch;
  return reinterpret_cast<const Uint16*>(row)[x];
}

inline Uint16 ToPixel(const SDL_Surface* surface, int r, int g, int b) {
  return static_cast<Uint16>(
      SDL_MapRGB(surface->format, static_cast<Uint8>(r), static_cast<Uint8>(g), static_cast<Uint8>(b)));
}

// A 16-bit picture whose pixel at (x, y) is `color(x, y)`, a value in the display's format.
template <typename Color>
SurfacePtr MakePicture(int width, int height, Color&& color) {
  const SDL_PixelFormat& format = *SDL_GetVideoSurface()->format;
  SurfacePtr picture(SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, format.BitsPerPixel, format.Rmask, format.Gmask,
                                          format.Bmask, format.Amask));
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<Uint16*>(static_cast<Uint8*>(picture->pixels) + y * picture->pitch);
    for (int x = 0; x < width; ++x) row[x] = static_cast<Uint16>(color(x, y));
  }
  return picture;
}

}  // namespace tolva::test
