#include "support/Golden.h"

#include <cstdlib>
#include <cstring>

#include <SDL_image.h>

#include "foundation/SurfacePtr.h"
#include "support/TempDir.h"
#include "support/TestPng.h"

namespace tolva::test {
namespace {

struct Color {
  Uint8 rgb[3];
};

Uint32 PixelOf(const SDL_Surface& surface, int x, int y) {
  const int bytes = surface.format->BytesPerPixel;
  Uint32 pixel = 0;
  std::memcpy(&pixel, static_cast<const Uint8*>(surface.pixels) + y * surface.pitch + x * bytes, bytes);
  return pixel;
}

Color ColorOf(const SDL_Surface& surface, int x, int y) {
  Color color;
  SDL_GetRGB(PixelOf(surface, x, y), surface.format, &color.rgb[0], &color.rgb[1], &color.rgb[2]);
  return color;
}

void Write(const std::string& path, const SDL_Surface& surface, const SDL_Rect& part) {
  TestPicture picture{.width = part.w, .height = part.h};
  for (int i = 0; i < part.w * part.h; ++i) {
    const Color color = ColorOf(surface, part.x + i % part.w, part.y + i / part.w);
    picture.samples.insert(picture.samples.end(), std::begin(color.rgb), std::end(color.rgb));
  }
  WriteFile(path, MakePng(picture));
}

// Empty when there is nothing to complain about.
std::string Compare(const SDL_Surface* golden, const SDL_Surface& surface, const SDL_Rect& part) {
  if (golden == nullptr || golden->w != part.w || golden->h != part.h) return "is missing or has another size";
  for (int i = 0; i < part.w * part.h; ++i) {
    const int x = i % part.w, y = i / part.w;
    const Color color = ColorOf(*golden, x, y);
    // In the surface's format, because each SDL library widens fewer bits to 24 in a way of its own.
    const Uint32 expected = SDL_MapRGB(surface.format, color.rgb[0], color.rgb[1], color.rgb[2]);
    if (PixelOf(surface, part.x + x, part.y + y) == expected) continue;
    return "differs at (" + std::to_string(x) + ", " + std::to_string(y) + ")";
  }
  return "";
}

}  // namespace

::testing::AssertionResult MatchesGolden(const std::string& name, const SDL_Surface& surface, const SDL_Rect& part) {
  const std::string path = TOLVA_TEST_GOLDENS "/" + name + ".png", kept = TOLVA_TEST_OUTPUT "/" + name + ".drawn.png";
  if (std::getenv("TOLVA_RENEW_GOLDENS") != nullptr) Write(path, surface, part);
  const std::string problem = Compare(SurfacePtr(IMG_Load(path.c_str())).get(), surface, part);
  if (problem.empty()) return ::testing::AssertionSuccess();
  Write(kept, surface, part);
  return ::testing::AssertionFailure() << path << " " << problem << "; what was drawn is in " << kept;
}

}  // namespace tolva::test
