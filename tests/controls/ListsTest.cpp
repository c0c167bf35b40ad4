#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/ControlListBox.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

class ListsTest : public TextTest {
 protected:
  template <typename List>
  List& AddList() {
    auto* list = new List(9, nullptr, nullptr, nullptr);
    list->SetPosition(0, 0, 300, 60);
    mRoot.AddSubControl(list);
    return *list;
  }

  using Texts = std::vector<std::string>;

  static Texts TextsOf(ControlListBox& list) {
    Texts texts;
    for (std::uint32_t id = 1000; ControlBasic* label = list.GetSubControl(id); ++id) {
      texts.push_back(static_cast<ControlLabel*>(label)->GetText());
    }
    return texts;
  }

  static Texts Wrap(const std::string& text, int width) {
    Texts lines;
    ControlChatBox::WrapText(text.c_str(), width, ControlTextBasic::GetFont(), lines);
    return lines;
  }

  ControlBasic mRoot{0, mVideo, nullptr, nullptr};
};

TEST_F(ListsTest, AListScrollsThroughAllItsEntries) {
  ControlListBox& list = AddList<ControlListBox>();
  list.AddEntry("only");
  EXPECT_EQ(TextsOf(list), (Texts{"only", "", ""}));
  for (const char* text : {"b", "c", "d", "c"}) list.AddEntry(text);
  EXPECT_EQ(TextsOf(list), (Texts{"only", "b", "c"}));

  // The arrow deletes the row that has the focus.
  Click(mRoot, 20, 30);
  for (int click = 0; click < 3; ++click) Click(mRoot, 290, 55);
  EXPECT_EQ(TextsOf(list), (Texts{"c", "d", "c"}));
  Click(mRoot, 20, 30);
  EXPECT_TRUE(list.RemoveEntry("c"));
  mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEMOTION, 20, 30));
  EXPECT_EQ(TextsOf(list), (Texts{"b", "d", "c"}));
}

TEST_F(ListsTest, TheWheelScrollsOnlyWhatIsInFrontUnderThePointer) {
  ControlListBox& list = AddList<ControlListBox>();
  for (const char* text : {"0", "1", "2", "3", "4", "5", "6", "7"}) list.AddEntry(text);
  auto* window = new ControlBasic(8, nullptr, nullptr, nullptr);
  window->SetPosition(100, 0, 100, 100);
  mRoot.AddSubControl(window);
  constexpr int kUp = SDL_BUTTON_WHEELUP;
  constexpr int kDown = SDL_BUTTON_WHEELDOWN;
  // In this order: each turn starts where the one before ended.
  const struct {
    const char* name;
    int x, y, button;
    const char* topRow;
  } turns[] = {
      {"down on a row", 20, 30, kDown, "3"},
      {"down on the window in front", 150, 30, kDown, "3"},
      {"down on the arrow, to the end", 295, 5, kDown, "5"},
      {"down at the end", 20, 59, kDown, "5"},
      {"up below the list", 20, 90, kUp, "5"},
      {"up on the window in front", 150, 30, kUp, "5"},
      {"up on the track", 292, 30, kUp, "2"},
      {"up on a row, to the start", 20, 30, kUp, "0"},
  };
  for (const auto& turn : turns) {
    Click(mRoot, turn.x, turn.y, turn.button);
    EXPECT_EQ(TextsOf(list)[0], turn.topRow) << turn.name;
    EXPECT_FALSE(list.IsActive()) << turn.name;
    EXPECT_FALSE(window->IsActive()) << turn.name;
  }
}

TEST_F(ListsTest, WrappingLosesNothingAndAlwaysEnds) {
  std::string bytes;
  for (int byte = 255; byte > 0; --byte) bytes.push_back(static_cast<char>(byte));
  for (const std::string& text : {std::string(), std::string("   many    blanks   "), bytes, std::string(3000, 'i'),
                                  "word and a" + std::string(200, 'x') + " long one"}) {
    for (const int width : {-100, 0, 1, 11, 60, 300, 16384, 1 << 30}) {
      SCOPED_TRACE(testing::Message() << text.substr(0, 20) << " in " << width);
      std::size_t position = 0;
      for (const std::string& line : Wrap(text, width)) {
        EXPECT_LE(line.size(), 1023u);
        if (line.size() > 1) {
          EXPECT_LE(WidthOf(line), width);
        }
        ASSERT_EQ(text.compare(position, line.size(), line), 0);
        position += line.size();
        // The blank at which a line was broken is left out.
        if (position < text.size() && text[position] == ' ') ++position;
      }
      EXPECT_EQ(position, text.size());
    }
  }
  EXPECT_EQ(Wrap("one two three", WidthOf("one two")), (Texts{"one two", "three"}));
  EXPECT_EQ(Wrap("one two ", WidthOf("one two")), (Texts{"one two"}));
  EXPECT_EQ(Wrap("a mmmmmm b", WidthOf("mmmm")), (Texts{"a", "mmmm", "mm b"}));
}

TEST_F(ListsTest, AChatFollowsUnlessScrolledBackAndDropsTheOldestLines) {
  ControlChatBox& chat = AddList<ControlChatBox>();
  // See-through: making its labels refreshes it.
  chat.SetBackgroundColor(255, 0, 255);
  chat.SetMaxLines(6);
  for (const char* text : {"1", "2", "3", "4", "5"}) chat.AddEntry(text);
  EXPECT_EQ(TextsOf(chat), (Texts{"", "3", "", "4", "", "5"}));
  Click(mRoot, 290, 5);
  chat.AddEntry("6");
  EXPECT_EQ(TextsOf(chat), (Texts{"", "2", "", "3", "", "4"}));
  for (int click = 0; click < 2; ++click) Click(mRoot, 290, 55);
  chat.AddEntry("7");
  EXPECT_EQ(TextsOf(chat), (Texts{"", "5", "", "6", "", "7"}));
  chat.AddEntry(std::string(100, 'N').c_str(), std::string(2000, 'm').c_str());
  EXPECT_EQ(chat.GetEntryCount(), 6);
}

TEST_F(ListsTest, RowsThatAreFilledAgainAreAsGoodAsNew) {
  ControlChatBox& used = AddList<ControlChatBox>();
  used.AddEntry("Someone with a long name", "WWWW");
  Click(mRoot, 100, 10);
  used.SetSize(200, 100);
  used.SetBackgroundColor(0, 0, 255);
  used.SetSize(300, 60);
  ControlChatBox& fresh = AddList<ControlChatBox>();
  for (ControlChatBox* chat : {&used, &fresh}) {
    chat->ClearEntries();
    chat->SetBackgroundColor(0, 255, 0);
    for (const char* name : {"A", "Server", "Someone", "Bea"}) chat->AddEntry(name, "says");
    chat->TurnWheel(10, 10, 1);
    chat->Blit();
  }
  for (std::uint32_t id = 1000; id < 1006; ++id) {
    const ControlBasic& row = *used.GetSubControl(id);
    EXPECT_FALSE(row.IsActive()) << id;
    EXPECT_EQ(row.GetWidth(), fresh.GetSubControl(id)->GetWidth()) << id;
  }
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 300; ++x) {
      ASSERT_EQ(PixelAt(used.GetBaseSurface(), x, y), PixelAt(fresh.GetBaseSurface(), x, y)) << x << ", " << y;
    }
  }
}

}  // namespace
}  // namespace tolva::test
