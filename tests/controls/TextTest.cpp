#include <algorithm>
#include <cstring>
#include <string_view>

#include "controls/ControlLabel.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

SDL_Event Key(const SDL_keysym& key) {
  SDL_Event event{};
  event.type = SDL_KEYDOWN;
  event.key.keysym = key;
  return event;
}

TEST_F(TextTest, NoTextIsAnError) {
  ControlLabel label(1, nullptr, nullptr, nullptr);
  label.SetSize(400, 60);
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  for (const std::string& text : {all, std::string("\n\t\r\x1b[0m%s%n"), std::string(5000, '%')}) {
    label.SetText(text.c_str());
    EXPECT_EQ(label.GetText(), text.substr(0, 1023));
  }
  label.SetText(nullptr);
  EXPECT_STREQ(label.GetText(), "");
}

class TextBoxTest : public TextTest {
 protected:
  TextBoxTest() { mBox.SetSize(100, 20); }

  // '<' and '>' step, '^' and '$' jump, 'B' and 'D' delete; everything else is typed.
  void Type(const std::string& keys) {
    constexpr std::string_view kMarks = "<>^$BD";
    constexpr SDLKey kKeys[] = {SDLK_LEFT, SDLK_RIGHT, SDLK_HOME, SDLK_END, SDLK_BACKSPACE, SDLK_DELETE, SDLK_UNKNOWN};
    for (const char key : keys) {
      const SDLKey symbol = kKeys[std::min(kMarks.find(key), kMarks.size())];
      mBox.HandleSdlEvent(Key({0, symbol, KMOD_NONE, static_cast<Uint8>(key)}));
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
}

TEST_F(TextBoxTest, KeysThatTypeReportOrDoNothing) {
  for (const SDL_keysym& key : {SDL_keysym{0, SDLK_KP7, KMOD_NUM, 0},
                                {0, SDLK_KP7, KMOD_NONE, 0},
                                {0, SDLK_a, KMOD_NONE, 0x0141},
                                {0, SDLK_a, KMOD_LCTRL, 1},
                                {0, SDLK_a, KMOD_NONE, 0x1F},
                                {0, SDLK_a, KMOD_NONE, 0x017F}}) {
    mBox.HandleSdlEvent(Key(key));
  }
  EXPECT_STREQ(mBox.GetText(), "7\x41");
  for (SDLKey key : {SDLK_RETURN, SDLK_KP_ENTER, SDLK_TAB, SDLK_ESCAPE})
    mBox.HandleSdlEvent(Key({0, key, KMOD_NONE, 13}));
  EXPECT_EQ(mReports, (Reports{{1, 0}, {1, 0}, {1, 1}, {1, 2}}));
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
    Type("^");
    EXPECT_EQ(Shown(), displayed);
    EXPECT_EQ(mBox.GetText(), text);
    Type("$");
    for (const char* keys : {"B", "<<D", "$BBBBBBBBBB", "BBBBBBBBBBBBBBBBB", "BBBBBBBBBB"}) {
      Type(keys);
      const std::string left = password ? std::string(std::strlen(mBox.GetText()), '*') : mBox.GetText();
      const std::size_t hidden = left.size() - Shown().size();
      EXPECT_LE(WidthOf(Shown()), 94);
      EXPECT_TRUE(hidden == 0 || WidthOf(left.substr(hidden - 1)) > 94) << Shown() << " of " << left;
    }
  }
}

}  // namespace
}  // namespace tolva::test
