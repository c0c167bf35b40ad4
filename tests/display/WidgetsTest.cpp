#include "DisplayFixture.h"
#include "display/Button.h"
#include "display/InputBox.h"
#include "foundation/InfoHandler.h"
#include "foundation/Ticks.h"
#include "support/Events.h"
#include "support/VideoTest.h"

namespace tolva::test {
namespace {

constexpr Uint16 kGround = 1;  // what lies under the widgets
constexpr Uint16 kWhitePixel = 0xFFFF;

std::uint32_t gNow = 0;

struct WidgetsTest : VideoTest {
  WidgetsTest() {
    SetTickSource([] { return gNow; });
    Entries entries = OnlyTheFont();
    // The upper half, the released look, is white.
    entries[kPictureHistoryEnlarge] = MakePng({.width = 16, .height = 32, .samples = Bytes(16 * 16 * 3, 255)});
    WriteGraphics(entries);
  }
  ~WidgetsTest() override { SetTickSource(nullptr); }
  Uint16 Draw(Widget& widget, int x, int y) {
    SDL_FillRect(mVideo, nullptr, kGround);
    widget.Blit(mVideo);
    return PixelAt(mVideo, x, y);
  }
  InputBox MakeBox(int width, std::uint32_t maxLength, const char* text) {
    return {0, 0, static_cast<std::uint16_t>(width), 20, 255, 255, 255, maxLength, text, &mLog};
  }
  int WidthOf(const char* text) { return TextBox(0, 0, 9, 9, 0, 0, 0, text, &mLog).GetTextWidth(); }

  TempDir mDir;
  InfoHandler mLog;
};

TEST_F(WidgetsTest, AClickTogglesTheLookOfAButton) {
  const struct {
    const char* name;
    PictureId picture;
    Uint16 released, pressed;
  } cases[] = {{"with its picture", kPictureHistoryEnlarge, kWhitePixel, 0},
               {"without a picture", kPictureHistoryShrink, kGround, kGround}};
  for (const auto& each : cases) {
    Button button(40, 50, 16, 16, each.picture, &mLog);
    for (const bool pressed : {false, true, false}) {
      EXPECT_EQ(button.IsPressed(), pressed) << each.name;
      EXPECT_EQ(Draw(button, 41, 51), pressed ? each.pressed : each.released) << each.name;
      EXPECT_EQ(PixelAt(mVideo, 41, 66), kGround) << each.name << ", below the button";
      button.HandleEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, 0, 0));
    }
  }
}

TEST_F(WidgetsTest, TextBoxesShareTheFontAndShowAnyText) {
  std::string noise;
  for (int i = 0; i < 2000; ++i) noise += static_cast<char>(1 + i % 255);
  auto box = std::make_unique<TextBox>(0, 0, 800, 20, 255, 255, 255, noise.c_str(), &mLog);
  EXPECT_EQ(box->GetText(), noise.substr(0, 1023));
  EXPECT_GT(box->GetTextWidth(), 1023);
  std::filesystem::remove("Graphics.cci");
  EXPECT_GT(WidthOf("shared"), 0);
  EXPECT_EQ(WidthOf(""), 0);
  EXPECT_EQ(WidthOf(nullptr), 0);
  box.reset();
  EXPECT_EQ(WidthOf("the last one has closed the font"), 0);
}

void Press(InputBox& box, const SDL_keysym& key) { box.HandleEvent(KeyEvent(key)); }

TEST_F(WidgetsTest, AnInputBoxTakesKeysWhileActiveUpToItsLength) {
  InputBox box = MakeBox(800, 6, "ab cd");
  Press(box, Typing('x'));
  EXPECT_STREQ(box.GetText(), "ab cd") << "not active";
  box.SetActive(true);
  Press(box, Key(SDLK_RIGHT, KMOD_LCTRL));
  Press(box, Typing('|'));
  EXPECT_STREQ(box.GetText(), "ab |cd") << "Ctrl moves by words";
  for (const SDL_keysym& key : {Typing('x'), Typing('\t'), Typing('\x1b'), Typing('\r')}) Press(box, key);
  EXPECT_STREQ(box.GetText(), "ab |cd") << "full";
}

TEST_F(WidgetsTest, APasswordIsMaskedAndHidesItsWords) {
  InputBox box = MakeBox(800, 9, "a b");
  box.SetPassword(true);
  EXPECT_EQ(box.GetTextWidth(), WidthOf("***"));
  box.SetActive(true);
  Press(box, Key(SDLK_RIGHT, KMOD_LCTRL));
  Press(box, Typing('|'));
  EXPECT_STREQ(box.GetText(), "a| b") << "Ctrl does not move by words";
}

TEST_F(WidgetsTest, ATextWiderThanItsBoxMovesWithTheCursor) {
  InputBox box = MakeBox(40, 99, "a rather long line of text");
  box.SetActive(true);
  EXPECT_EQ(box.GetSourceX(), 0);
  const struct {
    const char* name;
    SDLKey key;
    bool isAtEnd;
  } steps[] = {{"to the end", SDLK_END, true},
               {"one character back, still in view", SDLK_LEFT, true},
               {"to the start", SDLK_HOME, false},
               {"to the end again", SDLK_END, true},
               {"with a shorter text", SDLK_BACKSPACE, true}};
  for (const auto& step : steps) {
    Press(box, Key(step.key));
    EXPECT_EQ(box.GetSourceX(), step.isAtEnd ? box.GetTextWidth() - 40 : 0) << step.name;
  }
}

TEST_F(WidgetsTest, TheCursorBlinksWhileTheBoxIsActive) {
  InputBox box = MakeBox(800, 9, "   ");
  const int x = box.GetTextWidth() - 1;
  box.SetActive(true);
  Press(box, Key(SDLK_END));
  gNow += 500;
  EXPECT_EQ(Draw(box, x, 5), kWhitePixel);
  for (const Uint16 color : {kGround, kWhitePixel}) {
    gNow += 501;
    EXPECT_EQ(Draw(box, x, 5), color);
  }
  box.SetActive(false);
  EXPECT_EQ(Draw(box, x, 5), kGround);
}

}  // namespace
}  // namespace tolva::test
