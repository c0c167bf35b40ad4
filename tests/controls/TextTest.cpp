#include <map>

#include "controls/ControlLabel.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

class LabelTest : public TextTest {
 protected:
  LabelTest() { mLabel.SetSize(100, 40); }

  // How many pixels differ from the background.
  static int CountInk(const ControlBasic& control) {
    int ink = 0;
    const SDL_Surface* surface = control.GetBaseSurface();
    for (int y = 0; y < surface->h; ++y) {
      for (int x = 0; x < surface->w; ++x) ink += PixelAt(surface, x, y) != 0xFFFF;
    }
    return ink;
  }

  ControlLabel mLabel{1, nullptr, &mReports, Record};
};

TEST_F(LabelTest, TheTextStandsInOneOfNinePlaces) {
  mLabel.SetText("Hi");
  int w = 0;
  int h = 0;
  TTF_SizeText(ControlTextBasic::GetFont(), "Hi", &w, &h);
  const int x[] = {3, (100 - w) / 2, 100 - w - 3};
  const int y[] = {3, (40 - h) / 2, 40 - h - 3};
  EXPECT_EQ(mLabel.GetTextY(), y[1]);
  for (std::uint32_t alignment = 0; alignment < 9; ++alignment) {
    SCOPED_TRACE(alignment);
    mLabel.SetAlignment(alignment);
    EXPECT_EQ(mLabel.GetTextX(), x[alignment % 3]);
    EXPECT_EQ(mLabel.GetTextY(), y[alignment / 3]);
    EXPECT_GT(CountInk(mLabel), 0);
  }
  mLabel.SetAlignment(9);
  EXPECT_EQ(mLabel.GetTextX(), 0);
  EXPECT_EQ(mLabel.GetTextY(), 0);
  mLabel.SetAlignment(ControlLabel::kMiddleCenter);
  mLabel.SetText("");
  EXPECT_EQ(mLabel.GetTextWidth(), 0);
  EXPECT_EQ(mLabel.GetTextY(), y[1]);
}

TEST_F(LabelTest, TextIsCutAtTheRightMargin) {
  mLabel.SetText(std::string(100, 'W').c_str());
  for (int pixel = 0; pixel < 3 * 40; ++pixel) {
    EXPECT_EQ(PixelAt(mLabel.GetBaseSurface(), 97 + pixel % 3, pixel / 3), 0xFFFF);
  }
  mLabel.SetWidth(5);
  EXPECT_EQ(CountInk(mLabel), 0);
}

TEST_F(LabelTest, NoTextIsAnErrorOrLost) {
  ControlTextBasic::LoadFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 40);
  mLabel.SetSize(400, 60);
  std::string high;
  for (int byte = 1; byte < 256; ++byte) high.push_back(static_cast<char>(byte));
  for (const std::string& text :
       {std::string(1023, 'W'), high, std::string("\n\t\r\x1b[0m%s%n"), std::string(5000, '%')}) {
    mLabel.SetText(text.c_str());
    EXPECT_EQ(mLabel.GetText(), text.substr(0, 1023));
    EXPECT_GT(CountInk(mLabel), 0);
  }
  mLabel.SetText(mLabel.GetText() + 1000);
  EXPECT_EQ(std::string(mLabel.GetText()), std::string(23, '%'));
  mLabel.SetMaxLength(-1);
  mLabel.SetText("x");
  EXPECT_STREQ(mLabel.GetText(), "");
  mLabel.SetText(nullptr);
  EXPECT_STREQ(mLabel.GetText(), "");
}

TEST_F(LabelTest, AnUnderlinedLabelDoesNotUnderlineOthers) {
  mLabel.SetText("mmm");
  const int plain = CountInk(mLabel);
  ControlLabel heading(2, nullptr, nullptr, nullptr);
  heading.SetSize(100, 40);
  heading.SetUnderline(true);
  heading.SetText("mmm");
  EXPECT_GT(CountInk(heading), plain);
  mLabel.Refresh(true);
  EXPECT_EQ(CountInk(mLabel), plain);
}

TEST_F(ControlsTest, TheLastTextControlClosesTheFont) {
  {
    ControlTextBox box(1, nullptr, nullptr, nullptr);
    EXPECT_EQ(ErrorOf([] { ControlTextBasic::LoadFont("/nowhere.ttf", 12); }).find("ControlTextBasic LoadFont "), 0u);
    box.SetActive(true);
    box.SdlEventHandler(Key(SDLK_a, 'a'));
    EXPECT_STREQ(box.GetText(), "a");
    {
      ControlLabel label(2, nullptr, nullptr, nullptr);
      ControlTextBasic::LoadFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 12);
    }
    EXPECT_NE(ControlTextBasic::GetFont(), nullptr);
  }
  EXPECT_EQ(ControlTextBasic::GetFont(), nullptr);
  EXPECT_EQ(TTF_WasInit(), 0);
}

class TextBoxTest : public TextTest {
 protected:
  TextBoxTest() { mBox.SetSize(100, 20); }

  // '<' and '>' step, '^' and '$' jump, 'B' and 'D' delete; everything else is typed.
  void Type(const std::string& keys) {
    const std::map<char, SDLKey> commands = {{'<', SDLK_LEFT}, {'>', SDLK_RIGHT},     {'^', SDLK_HOME},
                                             {'$', SDLK_END},  {'B', SDLK_BACKSPACE}, {'D', SDLK_DELETE}};
    for (const char key : keys) {
      const auto command = commands.find(key);
      mBox.HandleSdlEvent(Key(command == commands.end() ? SDLK_UNKNOWN : command->second, static_cast<Uint8>(key)));
    }
  }
  std::string Shown() const { return mBox.ControlLabel::GetText(); }

  ControlTextBox mBox{1, nullptr, &mReports, Record};
};

TEST_F(TextBoxTest, Editing) {
  // Text before, keys, text after.
  const std::string cases[] = {
      "abc:|:abc|",   "abc:<|:ab|c", "abc:^<|:|abc",         "abc:^>>|:ab|c",       "abc:^>>>>>|:abc|",
      "abc:^$|:abc|", "abc:B|:ab|",  "abc:<B|:a|c",          "abc:^B|:|abc",        "abc:D|:abc|",
      "abc:^D|:|bc",  "abc:BBBBx:x", "12345678:^x:12345678", "123456789::12345678", "a\xE4:<\xFC|:a\xFC|\xE4"};
  mBox.SetMaxLength(8);
  for (const std::string& each : cases) {
    const std::size_t keys = each.find(':') + 1;
    const std::size_t after = each.rfind(':') + 1;
    mBox.SetActive(false);
    mBox.SetText(each.substr(0, keys - 1).c_str());
    Type(each.substr(keys, after - 1 - keys));
    EXPECT_EQ(mBox.GetText(), each.substr(after)) << each;
  }
  // A box that is emptied while one types in it.
  mBox.SetText("");
  Type("x");
  EXPECT_STREQ(mBox.GetText(), "x");
}

TEST_F(TextBoxTest, KeysThatTypeReportOrDoNothing) {
  mBox.HandleSdlEvent(Key(SDLK_KP7, 0, KMOD_NUM));
  mBox.HandleSdlEvent(Key(SDLK_KP7, 0));
  mBox.HandleSdlEvent(Key(SDLK_KP5, 'x'));
  mBox.HandleSdlEvent(Key(SDLK_a, 0x0141));
  EXPECT_STREQ(mBox.GetText(), "7x\x41");
  for (SDLKey key : {SDLK_RETURN, SDLK_TAB, SDLK_ESCAPE}) mBox.HandleSdlEvent(Key(key, 13));
  EXPECT_EQ(mReports, (Reports{{1, 0}, {1, 1}, {1, 2}}));
}

TEST_F(TextBoxTest, TheCursorStaysInViewAndTheStartIsShownWithoutFocus) {
  const std::string text = "the quick brown fox jumps over the lazy dog";
  for (const bool password : {false, true}) {
    mBox.SetPassword(password);
    const std::string displayed = password ? std::string(text.size(), '*') : text;
    mBox.SetActive(false);
    mBox.SetText(text.c_str());
    EXPECT_EQ(Shown(), displayed);
    mBox.SetActive(true);
    const std::string end = Shown();
    EXPECT_LT(end.size(), displayed.size());
    EXPECT_LE(WidthOf(end), 94);
    EXPECT_GT(WidthOf(displayed.substr(displayed.size() - end.size() - 1)), 94);
    Type("<<");
    EXPECT_EQ(Shown(), end);
    Type("^");
    EXPECT_EQ(Shown(), displayed);
    EXPECT_EQ(mBox.GetText(), text);
  }
  mBox.SetWidth(0);
  Type("$x");
  EXPECT_EQ(mBox.GetText(), text + "x");
}

TEST_F(TextBoxTest, TheCursorBlinksWhileTheBoxHasTheFocus) {
  mBox.SetParentSurface(mVideo);
  mBox.SetForegroundColor(255, 0, 0);
  const auto cursorIsShown = [&](Uint32 tick) {
    gInputs.ticks = tick;
    mBox.Blit();
    mBox.Blit();
    return PixelAt(mVideo, mBox.GetTextX() + mBox.GetTextWidth() - 1, 8) == ToPixel(mVideo, 255, 0, 0);
  };
  const std::pair<Uint32, bool> blinks[] = {{10, false}, {499, false}, {510, true}, {1000, true}, {1010, false}};
  mBox.SetActive(true);
  for (const auto& [tick, shown] : blinks) EXPECT_EQ(cursorIsShown(tick), shown) << tick;
  Type("i ");
  EXPECT_TRUE(cursorIsShown(1500));
  mBox.SetActive(false);
  EXPECT_FALSE(cursorIsShown(1501));
}

}  // namespace
}  // namespace tolva::test
