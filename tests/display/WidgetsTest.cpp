#include "DisplayFixture.h"
#include "display/Button.h"
#include "display/InputBox.h"
#include "foundation/InfoHandler.h"
#include "support/VideoTest.h"
#include "support/WaitUntil.h"

namespace tolva::test {
namespace {

struct WidgetsTest : VideoTest {
  WidgetsTest() {
    EXPECT_EQ(TTF_Init(), 0);
    Entries entries = OnlyTheFont();
    entries[5300] = MakePng({.width = 16, .height = 32, .samples = Bytes(16 * 16 * 3, 255)});
    WriteGraphics(entries);
  }
  ~WidgetsTest() override { TTF_Quit(); }
  Uint16 Draw(Widget& widget, int x, int y) {
    SDL_FillRect(mVideo, nullptr, 1);
    widget.Blit(mVideo);
    return PixelAt(mVideo, x, y);
  }
  int WidthOf(const char* text) { return TextBox(0, 0, 9, 9, 0, 0, 0, text, &mLog).GetTextWidth(); }
  TempDir mDir;
  InfoHandler mLog;
};

TEST_F(WidgetsTest, AClickTogglesTheLookOfAButton) {
  for (const auto& [id, released, pressed] : {std::tuple{5300U, 0xFFFF, 0}, {5301U, 1, 1}}) {
    Button button(40, 50, 16, 16, id, &mLog);
    for (int i = 0; i < 4; ++i, button.HandleEvent(SDL_Event{SDL_MOUSEBUTTONDOWN})) {
      EXPECT_EQ(Draw(button, 41, 51), i % 2 == 0 ? released : pressed);
      EXPECT_EQ(PixelAt(mVideo, 41, 66), 1);
      EXPECT_EQ(button.IsPressed(), i % 2 == 1);
    }
  }
}

TEST_F(WidgetsTest, TextBoxesShareTheFontAndShowAnyText) {
  std::string noise;
  for (int i = 0; i < 2000; ++i) noise += static_cast<char>(1 + i % 255);
  auto box = std::make_unique<TextBox>(0, 0, 800, 20, 255, 255, 255, noise.c_str(), &mLog);
  EXPECT_TRUE(box->GetText() == noise.substr(0, 1023) && box->GetTextWidth() > 1023);
  std::filesystem::remove("Graphics.cci");
  EXPECT_TRUE(WidthOf("shared") > 0 && WidthOf("") == 0 && WidthOf(nullptr) == 0);
  box.reset();
  EXPECT_EQ(WidthOf("closed"), 0);
}

// \b and \x7F erase, L, R, H and E move the cursor, l and r by words; 7 (with number lock) and 8 are on the key pad.
void Press(InputBox& box, const std::string& keys) {
  constexpr SDLKey kSpecial[] = {SDLK_LEFT, SDLK_RIGHT, SDLK_HOME, SDLK_END, SDLK_LEFT, SDLK_RIGHT, SDLK_KP7, SDLK_KP8};
  for (const char key : keys) {
    SDL_Event event{SDL_KEYDOWN};
    const std::size_t found = std::string("LRHElr78").find(key);
    event.key.keysym.sym = found < 8 ? kSpecial[found] : static_cast<SDLKey>(static_cast<Uint8>(key));
    event.key.keysym.unicode = found < 8 ? 0 : static_cast<Uint8>(key);
    event.key.keysym.mod = key == '7' ? KMOD_NUM : key == 'l' ? KMOD_RCTRL : key == 'r' ? KMOD_LCTRL : KMOD_NONE;
    box.HandleEvent(event);
  }
}

TEST_F(WidgetsTest, KeysEditTheTextOfAnInputBox) {
  for (const std::string test :
       {"/xyz\xe4_bcd/xyz\xe4_b", "ab cdefg/|E|/ab cdefg", "ab cd/\bL|/|ab cd", "ab cd/E\x7FR|/ab cd|",
        "ab cd/El|/ab |cd", "ab cd/Ell|/|ab cd", "ab cd/r|/ab |cd", "ab cd/rr|/ab cd|", "a  b/Ell|/|a  b",
        "abc/R\b|/|bc", "abc/ER\bL\x7FH|/|a", "/78\t\x1b\r\x01\x1f|/7|"}) {
    const std::size_t first = test.find('/'), last = test.rfind('/');
    InputBox box(0, 0, 800, 20, 255, 255, 255, 6, test.substr(0, first).c_str(), &mLog);
    Press(box, "ignored");
    box.SetActive(true);
    Press(box, test.substr(first + 1, last - first - 1));
    EXPECT_EQ(box.GetText(), test.substr(last + 1)) << test;
  }
}

TEST_F(WidgetsTest, ATextWiderThanItsBoxMovesWithTheCursor) {
  InputBox box(0, 0, 40, 20, 255, 255, 255, 99, "a rather long line of text", &mLog);
  box.SetActive(true);
  for (const auto& [keys, isAtEnd] : {std::pair{"", false}, {"E", true}, {"L", true}, {"H", false}, {"E\b", true}}) {
    Press(box, keys);
    EXPECT_EQ(box.GetSourceX(), isAtEnd ? box.GetTextWidth() - 40 : 0) << keys;
  }
}

TEST_F(WidgetsTest, AnInputBoxShowsItsCursorOnlyWhileActiveAndHidesPasswords) {
  InputBox box(0, 0, 800, 20, 255, 255, 255, 9, "   ", &mLog);
  const int x = box.GetTextWidth() - 1;
  box.SetActive(true);
  Press(box, "E");
  EXPECT_EQ(Draw(box, x, 5), 0xFFFF);
  for (const int color : {1, 0xFFFF}) EXPECT_TRUE(WaitUntil([&] { return Draw(box, x, 5) == color; }));
  box.SetActive(false);
  EXPECT_EQ(Draw(box, x, 5), 1);
  box.SetPassword(true);
  EXPECT_EQ(box.GetTextWidth(), WidthOf("***"));
}

}  // namespace
}  // namespace tolva::test
