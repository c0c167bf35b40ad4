#include "support/Golden.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <SDL_image.h>

#include "foundation/SurfacePtr.h"
#include "support/TempDir.h"
#include "support/TestPng.h"

namespace tolva::test {
namespace {

// One channel in 8 bits. Not SDL_GetRGB, of which each SDL library has an idea of its own.
std::uint8_t Widen(Uint32 pixel, Uint32 mask, Uint8 shift, Uint8 loss) {
  const Uint32 value = (pixel & mask) >> shift;
  return static_cast<std::uint8_t>(value << loss | (loss == 0 ? 0 : value >> (8 - 2 * loss)));
}

Bytes ToRgb(const SDL_Surface& surface, const SDL_Rect& part) {
  const SDL_PixelFormat& format = *surface.format;
  Bytes bytes;
  for (int y = part.y; y < part.y + part.h; ++y) {
    for (int x = part.x; x < part.x + part.w; ++x) {
      const auto* at = static_cast<const Uint8*>(surface.pixels) + y * surface.pitch + x * format.BytesPerPixel;
      Uint32 pixel = 0;
      for (int byte = 0; byte < format.BytesPerPixel; ++byte) pixel |= static_cast<Uint32>(at[byte]) << 8 * byte;
      bytes.push_back(Widen(pixel, format.Rmask, format.Rshift, format.Rloss));
      bytes.push_back(Widen(pixel, format.Gmask, format.Gshift, format.Gloss));
      bytes.push_back(Widen(pixel, format.Bmask, format.Bshift, format.Bloss));
    }
  }
  return bytes;
}

SDL_Rect WholeOf(const SDL_Surface& surface) {
  return {0, 0, static_cast<Uint16>(surface.w), static_cast<Uint16>(surface.h)};
}

}  // namespace

::testing::AssertionResult MatchesGolden(const SDL_Surface& surface, const std::string& name) {
  return MatchesGolden(surface, WholeOf(surface), name);
}

::testing::AssertionResult MatchesGolden(const SDL_Surface& surface, const SDL_Rect& part, const std::string& name) {
  const Bytes drawn = ToRgb(surface, part);
  const auto write = [&](const std::string& path) {
    WriteFile(path, MakePng({.width = part.w, .height = part.h, .samples = drawn}));
  };
  const std::string path = TOLVA_TEST_GOLDENS "/" + name + ".png";
  if (const char* renew = std::getenv("TOLVA_RENEW_GOLDENS"); renew != nullptr && *renew == '1') {
    std::filesystem::create_directories(TOLVA_TEST_GOLDENS);
    write(path);
    return ::testing::AssertionSuccess();
  }
  const SurfacePtr golden(IMG_Load(path.c_str()));
  std::string problem = "cannot be read";
  if (golden != nullptr && (golden->w != part.w || golden->h != part.h)) {
    problem = "has another size";
  } else if (golden != nullptr) {
    const Bytes expected = ToRgb(*golden, WholeOf(*golden));
    const auto at = std::mismatch(drawn.begin(), drawn.end(), expected.begin()).first - drawn.begin();
    if (static_cast<std::size_t>(at) == drawn.size()) return ::testing::AssertionSuccess();
    problem = "differs at " + std::to_string(at / 3 % part.w) + ", " + std::to_string(at / 3 / part.w);
  }
  const std::string kept = TOLVA_TEST_OUTPUT "/" + name + ".drawn.png";
  write(kept);
  return ::testing::AssertionFailure() << path << " " << problem << "; what was drawn is in " << kept;
}

}  // namespace tolva::test
