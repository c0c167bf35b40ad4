#include <cstring>
#include <numeric>

#include "controls/ControlLabel.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

TEST_F(TextTest, ALabelTakesAnyTextAndCutsIt) {
  ControlLabel label(1, nullptr, nullptr, nullptr);
  label.SetSize(400, 60);
  std::string text(5000, '%');
  std::iota(text.begin(), text.begin() + 255, '\1');
  label.SetText(text.c_str());
  EXPECT_EQ(label.GetText(), text.substr(0, 1023));
  label.SetText(nullptr);
  EXPECT_STREQ(label.GetText(), "");
}

class TextBoxTest : public TextTest {
 protected:
  TextBoxTest() { mBox.SetSize(100, 20); }

  void Press(const SDL_keysym& key, int times = 1) {
    for (int i = 0; i < times; ++i) mBox.HandleSdlEvent(KeyEvent(key));
  }
  std::string Shown() const { return mBox.ControlLabel::GetText(); }

  ControlTextBox mBox{1, nullptr, &mReports, Record};
};

TEST_F(TextBoxTest, KeysEditUpToTheMaximumLength) {
  mBox.SetMaxLength(3);
  for (const char typed : {'a', 'b', 'c', 'd'}) Press(Typing(typed));
  EXPECT_STREQ(mBox.GetText(), "abc");
  Press(Key(SDLK_LEFT, KMOD_LCTRL));
  Press(Key(SDLK_BACKSPACE));
  EXPECT_STREQ(mBox.GetText(), "ac") << "Ctrl does not move by words";
}

TEST_F(TextBoxTest, EnterTabAndEscapeAreReportedAndTypeNothing) {
  for (const SDLKey key : {SDLK_RETURN, SDLK_KP_ENTER, SDLK_TAB, SDLK_ESCAPE}) Press({0, key, KMOD_NONE, 'x'});
  EXPECT_EQ(mReports, (Reports{{1, 0}, {1, 0}, {1, 1}, {1, 2}}));
  EXPECT_STREQ(mBox.GetText(), "");
}

TEST_F(TextBoxTest, TheCursorStaysInViewAndTheStartIsShownWithoutFocus) {
  const int room = 100 - 2 * ControlLabel::kMargin;
  const struct {
    std::string text;
    bool password;
  } cases[] = {{"the quick brown fox jumps over the lazy dog", false},
               {"the quick brown fox jumps over the lazy dog", true},
               {"j.AVAVAWA fjf\xAD\xADTo.Ty LYL' and letters that move together, \1\xFFjj.T,AVA", false}};
  for (const auto& [text, password] : cases) {
    SCOPED_TRACE(testing::Message() << text << (password ? " as password" : ""));
    mBox.SetPassword(password);
    const auto displayed = [&, isMasked = password] {
      return isMasked ? std::string(std::strlen(mBox.GetText()), '*') : mBox.GetText();
    };
    // As much as fits is in view.
    const auto expectFullView = [&] {
      const std::size_t hidden = displayed().size() - Shown().size();
      EXPECT_LE(WidthOf(Shown()), room) << mBox.GetText();
      EXPECT_TRUE(hidden == 0 || WidthOf(displayed().substr(hidden - 1)) > room) << mBox.GetText();
    };
    mBox.SetActive(false);
    mBox.SetText(text.c_str());
    EXPECT_EQ(Shown(), displayed()) << "without the focus";
    mBox.SetActive(true);
    expectFullView();
    Press(Key(SDLK_HOME));
    EXPECT_EQ(Shown(), displayed()) << "the cursor is at the start";
    EXPECT_EQ(mBox.GetText(), text);
    Press(Key(SDLK_END));
    Press(Key(SDLK_LEFT), 2);
    Press(Key(SDLK_DELETE));
    expectFullView();
    for (Press(Key(SDLK_END)); mBox.GetText()[0] != '\0'; expectFullView()) Press(Key(SDLK_BACKSPACE));
  }
}

}  // namespace
}  // namespace tolva::test
