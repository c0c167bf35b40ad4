#include <random>

#include "sdl/Copy.h"
#include "sdl/Sprite.h"
#include "support/VideoTest.h"

namespace tolva::test {
namespace {

// Compares all copies with SDL's own, on surfaces of every depth with see-through parts, cut at every edge.
class SpriteTest : public VideoTest {
 protected:
  int Dice(int first, int last) { return std::uniform_int_distribution(first, last)(mRandom); }

  // Noise of few colors, each in runs, in the format of so many bits.
  SurfacePtr MakeNoise(int bits, int width, int height) {
    const bool is15 = bits == 15;
    const Uint32 masks[][3] = {{}, {is15 ? 0x7C00u : 0xF800u, is15 ? 0x3E0u : 0x7E0u, 0x1F}, {0xFF0000, 0xFF00, 0xFF}};
    const auto& [red, green, blue] = masks[bits == 8 ? 0 : bits <= 16 ? 1 : 2];
    SurfacePtr noise(SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, bits, red, green, blue, 0));
    SDL_Color colors[4] = {{255, 0, 255, 0}, {10, 200, 30, 0}, {0, 0, 0, 0}, {250, 250, 120, 0}};
    SDL_SetPalette(noise.get(), SDL_LOGPAL, colors, 0, 4);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width;) {
        const SDL_Color& color = colors[Dice(0, 3)];
        SDL_Rect run{Sint16(x), Sint16(y), Uint16(Dice(1, 30)), 1};
        x += run.w;
        SDL_FillRect(noise.get(), &run, SDL_MapRGB(noise->format, color.r, color.g, color.b));
      }
    }
    return noise;
  }
  static std::string PixelsOf(const SDL_Surface& surface) {
    std::string pixels;
    for (int y = 0; y < surface.h; ++y) {
      pixels.append(static_cast<const char*>(surface.pixels) + y * surface.pitch,
                    std::size_t(surface.w) * surface.format->BytesPerPixel);
    }
    return pixels;
  }

  std::mt19937 mRandom{11};
};

TEST_F(SpriteTest, CopiesTheSamePixelsAsSdlAtEveryDepth) {
  constexpr int kDepths[] = {16, 16, 8, 15, 24, 32};
  for (int round = 0; round < 3000; ++round) {
    const int fromBits = kDepths[Dice(0, 5)], toBits = Dice(0, 1) == 0 ? fromBits : kDepths[Dice(0, 5)];
    SurfacePtr from = MakeNoise(fromBits, Dice(1, 100), Dice(1, 20));
    if (Dice(0, 4) > 0) SDL_SetColorKey(from.get(), SDL_SRCCOLORKEY, SDL_MapRGB(from->format, 255, 0, 255));
    const SurfacePtr expected = MakeNoise(toBits, 60, 30);
    SDL_Rect clip{Sint16(Dice(0, 9)), Sint16(Dice(0, 9)), Uint16(Dice(30, 60)), Uint16(Dice(10, 30))};
    if (Dice(0, 3) == 0) SDL_SetClipRect(expected.get(), &clip);
    const auto copyOfTarget = [&] {
      SurfacePtr copy(SDL_ConvertSurface(expected.get(), expected->format, SDL_SWSURFACE));
      SDL_SetClipRect(copy.get(), &expected->clip_rect);
      return copy;
    };
    const SurfacePtr byCopy = copyOfTarget(), bySprite = copyOfTarget();
    const Rect part{Dice(-20, 90), Dice(-5, 15), Dice(0, 120), Dice(0, 30)};
    const int x = Dice(-110, 70), y = Dice(-25, 35);

    SDL_Rect source{Sint16(part.x), Sint16(part.y), Uint16(part.width), Uint16(part.height)};
    SDL_Rect target{Sint16(x), Sint16(y), 0, 0};
    if (!part.IsEmpty()) SDL_UpperBlit(from.get(), &source, expected.get(), &target);
    EXPECT_TRUE(CopyPart(from.get(), part, byCopy.get(), x, y));
    const Sprite sprite(std::move(from), Dice(0, 2) * 38);
    EXPECT_TRUE(sprite.CopyPart(part, *bySprite, x, y));
    ASSERT_TRUE(PixelsOf(*byCopy) == PixelsOf(*expected) && PixelsOf(*bySprite) == PixelsOf(*expected))
        << "round " << round << ": " << fromBits << " to " << toBits << " bits";
  }
}

}  // namespace
}  // namespace tolva::test
