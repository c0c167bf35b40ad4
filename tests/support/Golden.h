#pragma once

#include <cstdlib>
#include <cstring>
#include <string>

#include <SDL_image.h>
#include <gtest/gtest.h>

#include "sdl/Rect.h"
#include "sdl/SurfacePtr.h"
#include "support/TempDir.h"
#include "support/TestPng.h"

namespace tolva::test {

struct GoldenPixel {
  GoldenPixel(const SDL_Surface& surface, int x, int y) {
    const auto bytes = surface.format->BytesPerPixel;
    std::memcpy(&value, static_cast<const Uint8*>(surface.pixels) + y * surface.pitch + x * bytes, bytes);
    SDL_GetRGB(value, surface.format, &r, &g, &b);
  }
  Uint32 value = 0;
  Uint8 r, g, b;
};

// Whether `part` of `surface` is pixel by pixel the picture goldens/<name>.png beside the test. If not, what was drawn
// is kept in the build's folder; the message names the file. With TOLVA_RENEW_GOLDENS=1 in the environment it becomes
// the golden picture instead.
inline ::testing::AssertionResult MatchesGolden(const std::string& name, const SDL_Surface& surface, const Rect& part) {
  const bool renews = std::getenv("TOLVA_RENEW_GOLDENS") != nullptr;
  const std::string golden = TOLVA_TEST_GOLDENS "/" + name + ".png";
  const std::string drawn = renews ? golden : TOLVA_TEST_OUTPUT "/" + name + ".drawn.png";
  const SurfacePtr picture(IMG_Load(golden.c_str()));
  int differing =
      picture != nullptr && picture->w == part.width && picture->h == part.height ? 0 : part.width * part.height;
  TestPicture copy{.width = static_cast<Uint32>(part.width), .height = static_cast<Uint32>(part.height)};
  for (int i = 0, known = differing; i < part.width * part.height; ++i) {
    const GoldenPixel pixel(surface, part.x + i % part.width, part.y + i / part.width);
    copy.samples.insert(copy.samples.end(), {pixel.r, pixel.g, pixel.b});
    if (known > 0) continue;
    const GoldenPixel wanted(*picture, i % part.width, i / part.width);
    // In the surface's format, because each SDL library widens fewer bits to 24 in a way of its own.
    if (SDL_MapRGB(surface.format, wanted.r, wanted.g, wanted.b) != pixel.value) ++differing;
  }
  if (differing > 0) WriteFile(drawn, MakePng(copy));
  return ::testing::AssertionResult(differing == 0 || renews)
         << golden << ": " << differing << " pixels differ; what was drawn is in " << drawn;
}

}  // namespace tolva::test
