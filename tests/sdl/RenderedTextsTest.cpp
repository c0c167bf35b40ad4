#include <cstddef>
#include <cstring>
#include <random>
#include <string>

#include <dlfcn.h>

#include "sdl/SharedFont.h"
#include "sdl/Text.h"
#include "support/VideoTest.h"

// Stands in front of the font library's own.
namespace {
int sRendered = 0;
}  // namespace
extern "C" SDL_Surface* SDLCALL TTF_RenderText_Solid(TTF_Font* font, const char* text, SDL_Color color) {
  ++sRendered;
  static const auto render =
      reinterpret_cast<decltype(&TTF_RenderText_Solid)>(dlsym(RTLD_NEXT, "TTF_RenderText_Solid"));
  return render(font, text, color);
}

namespace tolva::test {
namespace {

class RenderedTextsTest : public VideoTest {
 protected:
  RenderedTextsTest() { Open(12); }

  void Open(int pointSize) { mFont.Open("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", pointSize); }
  const RenderedText& Get(const std::string& text, Rgb color = kWhite) {
    return mFont.GetTexts().Get(*mFont.Get(), text.c_str(), color, "RenderedTextsTest", "Get");
  }

  // Whether the text looks as the font library renders it now.
  void ExpectLook(const RenderedText& text, const std::string& characters, Rgb color) {
    const SurfacePtr fresh = RenderText(mFont.Get(), characters.c_str(), color);
    ASSERT_EQ(text.picture == nullptr, fresh == nullptr);
    if (fresh == nullptr) return;
    EXPECT_EQ(text.size, (Size{fresh->w, fresh->h}));
    for (int y = 0; y < fresh->h; ++y) {
      const auto row = [y](const SDL_Surface& surface) {
        return static_cast<const char*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch;
      };
      ASSERT_EQ(std::memcmp(row(*text.picture), row(*fresh), static_cast<std::size_t>(fresh->w)), 0);
    }
    const SDL_Color& shown = text.picture->format->palette->colors[1];
    EXPECT_EQ((Rgb{shown.r, shown.g, shown.b}), color);
  }

  SharedFont mFont;
  SharedFont::User mUser{mFont, "RenderedTextsTest", "RenderedTextsTest"};
};

TEST_F(RenderedTextsTest, ATextLooksAsWhenItIsRenderedNow) {
  std::mt19937 random(1);
  for (int i = 0; i < 4000; ++i) {
    if (random() % 1000 == 0) Open(8 + static_cast<int>(random() % 9));
    TTF_SetFontStyle(mFont.Get(), random() % 2 == 0 ? TTF_STYLE_NORMAL : TTF_STYLE_UNDERLINE);
    // More texts than are kept.
    const std::string text = random() % 2 == 0 ? "\1" : std::to_string(random() % 300);
    const Rgb color = random() % 2 == 0 ? kWhite : Rgb{0, 0, static_cast<std::uint8_t>(random() % 2)};
    ExpectLook(Get(text, color), text, color);
  }
}

TEST_F(RenderedTextsTest, ATextWiderThanASurfaceIsShownAsFarAsOneGoes) {
  Open(40);
  const RenderedText& text = Get(std::string(1000, 'W'));
  EXPECT_GT(text.size.width, 16383);
  EXPECT_LE(text.picture->w, 16383);
  EXPECT_GT(text.picture->w, 16383 - text.size.width / 1000);
}

TEST_F(RenderedTextsTest, WhatIsAskedForIsKeptAndTheRestMakesRoom) {
  const struct {
    const char* name;
    std::size_t count, length;
  } fillers[] = {{"many", 2 * RenderedTexts::kHalfCount, 1}, {"large", 20, 1000}};
  for (const auto& filler : fillers) {
    SCOPED_TRACE(filler.name);
    const auto rendersFor = [this](const std::string& text) {
      const int before = sRendered;
      Get(text);
      return sRendered - before;
    };
    Get("forgotten");
    Get("in use");
    for (std::size_t i = 0; i < filler.count; ++i) {
      Get(std::string(filler.length, 'W') + std::to_string(i));
      ASSERT_EQ(rendersFor("in use"), 0) << i;
    }
    EXPECT_EQ(rendersFor("forgotten"), 1);
    EXPECT_EQ(rendersFor("forgotten"), 0);
  }
}

}  // namespace
}  // namespace tolva::test
