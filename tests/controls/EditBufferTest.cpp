#include <gtest/gtest.h>

#include "controls/EditBuffer.h"
#include "support/Events.h"

namespace tolva::test {
namespace {

constexpr std::size_t kMaxLength = 8;
using WordMoves = EditBuffer::WordMoves;

// In these texts '|' is the cursor.

EditBuffer Make(std::string text) {
  const std::size_t cursor = text.find('|');
  EditBuffer buffer;
  buffer.SetText(text.erase(cursor, 1).c_str(), text.size());
  for (std::size_t i = 0; i < cursor; ++i) buffer.HandleKey(Key(SDLK_RIGHT), kMaxLength, WordMoves::Off);
  return buffer;
}

std::string Show(const EditBuffer& buffer) { return std::string(buffer.GetText()).insert(buffer.GetCursor(), 1, '|'); }

TEST(EditBufferTest, AKeyMovesErasesOrTypesAndSaysWhetherItChangedAnything) {
  const struct {
    const char* name;
    std::string before;
    SDL_keysym key;
    std::string after;
  } cases[] = {
      {"typing inserts", "a|c", Typing('b'), "ab|c"},
      {"typing takes Latin-1", "a|", Typing('\xE4'), "a\xE4|"},
      {"a full text takes nothing", "|12345678", Typing('x'), "|12345678"},
      {"a text that was set longer takes nothing", "123456789|", Typing('x'), "123456789|"},
      {"Backspace erases before the cursor", "ab|c", Key(SDLK_BACKSPACE), "a|c"},
      {"Backspace at the start", "|abc", Key(SDLK_BACKSPACE), "|abc"},
      {"Delete erases behind the cursor", "a|bc", Key(SDLK_DELETE), "a|c"},
      {"Delete at the end", "abc|", Key(SDLK_DELETE), "abc|"},
      {"Left", "ab|c", Key(SDLK_LEFT), "a|bc"},
      {"Left at the start", "|abc", Key(SDLK_LEFT), "|abc"},
      {"Right", "ab|c", Key(SDLK_RIGHT), "abc|"},
      {"Right at the end", "abc|", Key(SDLK_RIGHT), "abc|"},
      {"Home", "ab|c", Key(SDLK_HOME), "|abc"},
      {"Home at the start", "|abc", Key(SDLK_HOME), "|abc"},
      {"End", "ab|c", Key(SDLK_END), "abc|"},
      {"End at the end", "abc|", Key(SDLK_END), "abc|"},
      {"Ctrl+Left to the start of the word", "ab cd|", Key(SDLK_LEFT, KMOD_RCTRL), "ab |cd"},
      {"Ctrl+Left over blanks", "a  |b", Key(SDLK_LEFT, KMOD_LCTRL), "|a  b"},
      {"Ctrl+Right to the next word", "|ab  cd", Key(SDLK_RIGHT, KMOD_LCTRL), "ab  |cd"},
      {"Ctrl+Right in the last word", "ab |cd", Key(SDLK_RIGHT, KMOD_RCTRL), "ab cd|"},
      {"Ctrl+Right over a word of one letter and the next", "|a b cd", Key(SDLK_RIGHT, KMOD_LCTRL), "a b |cd"},
      {"Num Lock makes digits of the key pad", "|", Key(SDLK_KP7, KMOD_NUM), "7|"},
      {"the key pad without Num Lock", "|", Key(SDLK_KP7), "|"},
      {"Unicode is cut to a byte", "|", {0, SDLK_a, KMOD_NONE, 0x0141}, "A|"},
      {"a control character", "|", Typing('\x1F'), "|"},
      {"Unicode cut to a control character", "|", {0, SDLK_a, KMOD_NONE, 0x017F}, "|"},
  };
  for (const auto& each : cases) {
    EditBuffer buffer = Make(each.before);
    EXPECT_EQ(buffer.HandleKey(each.key, kMaxLength, WordMoves::On), each.before != each.after) << each.name;
    EXPECT_EQ(Show(buffer), each.after) << each.name;
  }
}

TEST(EditBufferTest, ANewTextIsCutAndKeepsTheCursorInside) {
  EditBuffer buffer = Make("ab|c");
  buffer.SetText("defgh", 4);
  EXPECT_EQ(Show(buffer), "de|fg");
  buffer.SetText(buffer.GetText() + 3, 4);
  EXPECT_EQ(Show(buffer), "g|");
  buffer.SetText(nullptr, 4);
  EXPECT_EQ(Show(buffer), "|");
}

}  // namespace
}  // namespace tolva::test
