#include <algorithm>

#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/ControlListBox.h"
#include "controls/ControlScrollbar.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

struct Place {
  int x, y, w, h;
  bool operator==(const Place&) const = default;
};
void PrintTo(const Place& place, std::ostream* out) {
  *out << place.x << "," << place.y << " " << place.w << "x" << place.h;
}
Place PlaceOf(const ControlBasic& control) {
  return {control.GetX(), control.GetY(), control.GetWidth(), control.GetHeight()};
}

TEST_F(ControlsTest, AScrollbarLaysOutItsParts) {
  const SurfacePtr border = MakePicture(32, 32, [](int, int) { return 1; });
  const struct {
    bool vertical, frame;
    int w, h, maximum, value;
    Place increment, decrement, track, thumb;
  } cases[] = {
      {true, false, 16, 132, 10, 0, {0, 116, 16, 16}, {0, 0, 16, 16}, {0, 16, 16, 100}, {0, 0, 16, 16}},
      {true, false, 16, 132, 10, 10, {0, 116, 16, 16}, {0, 0, 16, 16}, {0, 16, 16, 100}, {0, 84, 16, 16}},
      {true, true, 16, 132, 3, 2, {0, 116, 16, 16}, {0, 0, 16, 16}, {0, 16, 16, 100}, {2, 2 + 53, 12, 16}},
      {true, true, 16, 132, 0, 0, {0, 116, 16, 16}, {0, 0, 16, 16}, {0, 16, 16, 100}, {2, 2, 12, 16}},
      {false, false, 232, 16, 10, 5, {216, 0, 16, 16}, {0, 0, 16, 16}, {16, 0, 200, 16}, {92, 0, 16, 16}},
      {false, true, 232, 18, 10, 10, {216, 0, 16, 18}, {0, 0, 16, 18}, {16, 0, 200, 18}, {2 + 180, 2, 16, 12}},
      {true, false, 16, 10, 10, 0, {0, -6, 16, 16}, {0, 0, 16, 16}, {0, 16, 16, 0}, {0, 0, 16, 16}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    ControlScrollbar bar(4, mVideo, nullptr, nullptr);
    bar.SetVertical(each.vertical);
    if (each.frame) bar.SetBorderSurface(border.get());
    bar.SetMaximum(each.maximum);
    bar.SetSize(each.w, each.h);
    bar.SetValue(each.value);
    ControlBasic* track = bar.GetSubControl(2);
    EXPECT_EQ(PlaceOf(*bar.GetSubControl(0)), each.increment);
    EXPECT_EQ(PlaceOf(*bar.GetSubControl(1)), each.decrement);
    EXPECT_EQ(PlaceOf(*track), each.track);
    EXPECT_EQ(PlaceOf(*track->GetSubControl(3)), each.thumb);
  }
}

TEST_F(ControlsTest, AScrollbarStepsWithinItsRange) {
  ControlScrollbar bar(4, mVideo, &mReports, Record);
  bar.SetVertical(true);
  bar.SetSize(16, 100);
  bar.SetMaximum(2);
  bar.SetMaximum(-1);
  bar.SetMinimum(3);
  EXPECT_EQ(mReports, (Reports{{4, 1}}));
  for (const int expected : {1, 2, 2}) {
    Click(bar, 8, 90);
    EXPECT_EQ(bar.GetValue(), expected);
  }
  for (const int expected : {1, 0, 0}) {
    Click(bar, 8, 5);
    EXPECT_EQ(bar.GetValue(), expected);
  }
  EXPECT_EQ(mReports, (Reports{{4, 1}, {4, 0}, {4, 0}, {4, 0}, {4, 0}}));
  Click(bar, 8, 50);
  bar.SetMaximum(2147483647);
  for (const int value : {2147483647, -5}) bar.SetValue(value);
  EXPECT_EQ(bar.GetValue(), 0);
  bar.SetMinimum(2147483646);
  bar.SetValue(2147483647);
  EXPECT_EQ(bar.GetValue(), 2147483647);
}

class ListsTest : public TextTest {
 protected:
  template <typename List>
  List& AddList() {
    auto* list = new List(9, nullptr, nullptr, nullptr);
    list->SetPosition(0, 0, 300, 200);
    mRoot.AddSubControl(list);
    return *list;
  }
  static ControlScrollbar& BarOf(ControlListBox& list) {
    return *static_cast<ControlScrollbar*>(list.GetSubControl(0));
  }
  static ControlLabel* LabelOf(ControlListBox& list, std::uint32_t index) {
    return static_cast<ControlLabel*>(list.GetSubControl(1000 + index));
  }
  // The texts of the rows' labels.
  static std::vector<std::string> TextsOf(ControlListBox& list) {
    std::vector<std::string> texts;
    for (std::uint32_t index = 0; LabelOf(list, index) != nullptr; ++index) {
      texts.push_back(LabelOf(list, index)->GetText());
    }
    return texts;
  }
  // A chat box's rows as "name|text", without the empty ones.
  static std::vector<std::string> RowsOf(ControlChatBox& chat) {
    const std::vector<std::string> texts = TextsOf(chat);
    std::vector<std::string> rows;
    for (std::size_t index = 0; index + 1 < texts.size(); index += 2) {
      if (!texts[index + 1].empty()) rows.push_back(texts[index] + "|" + texts[index + 1]);
    }
    return rows;
  }

  ControlBasic mRoot{0, mVideo, nullptr, nullptr};
};

TEST_F(ListsTest, AsManyRowsAsFit) {
  const SurfacePtr border = MakePicture(32, 32, [](int, int) { return 1; });
  const struct {
    int height;
    bool frame;
    int rows;
  } cases[] = {{200, true, 10}, {200, false, 10}, {0, false, 0}, {19, false, 0}, {20, false, 1},
               {38, false, 1},  {39, false, 2},   {25, true, 0}, {26, true, 1},  {45, true, 2}};
  for (const auto& each : cases) {
    ControlListBox& list = AddList<ControlListBox>();
    list.SetBorderSurface(each.frame ? border.get() : nullptr);
    list.SetHeight(each.height);
    EXPECT_EQ(list.CalculateVisibleEntries(), each.rows) << each.height;
    EXPECT_EQ(TextsOf(list).size(), static_cast<std::size_t>(each.rows)) << each.height;
  }
}

TEST_F(ListsTest, AListScrollsThroughAllItsEntries) {
  ControlListBox& list = AddList<ControlListBox>();
  list.SetHeight(60);
  const std::size_t rows = 3;
  list.AddEntry("only");
  EXPECT_EQ(TextsOf(list), (std::vector<std::string>{"only", "", ""}));
  EXPECT_EQ(BarOf(list).GetMaximum(), 0);
  EXPECT_EQ(PlaceOf(BarOf(list)), (Place{284, 0, 16, 60}));
  EXPECT_EQ(PlaceOf(*LabelOf(list, 2)), (Place{0, 38, 284, 19}));
  for (const char* text : {"b", "c", "d", "c"}) list.AddEntry(text);
  EXPECT_EQ(TextsOf(list), (std::vector<std::string>{"only", "b", "c"}));
  EXPECT_EQ(BarOf(list).GetMaximum(), 2);

  // A row has the focus when the arrow is clicked, and is gone when the next event comes.
  Click(mRoot, 20, 30);
  for (int click = 0; click < 3; ++click) Click(mRoot, 290, 55);
  EXPECT_EQ(TextsOf(list), (std::vector<std::string>{"c", "d", "c"}));
  Click(mRoot, 20, 30);
  EXPECT_FALSE(list.RemoveEntry("cc"));
  EXPECT_FALSE(list.RemoveEntry(nullptr));
  EXPECT_TRUE(list.RemoveEntry("c"));
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 20, 30));
  EXPECT_EQ(TextsOf(list), (std::vector<std::string>{"b", "d", "c"}));
  EXPECT_EQ(list.GetEntryCount(), 4);

  list.SetForegroundColor(1, 2, 3);
  for (std::uint32_t row = 0; row < rows; ++row) EXPECT_EQ(LabelOf(list, row)->GetForegroundColor(), (Rgb{1, 2, 3}));
  list.ClearEntries();
  list.AddEntry(std::string(400, 'x').c_str());
  EXPECT_EQ(TextsOf(list), (std::vector<std::string>{std::string(255, 'x'), "", ""}));
}

TEST_F(ListsTest, WrappingLosesNothingAndAlwaysEnds) {
  std::string bytes;
  for (int byte = 255; byte > 0; --byte) bytes.push_back(static_cast<char>(byte));
  const std::string texts[] = {"",
                               " ",
                               "a ",
                               "a b c d e f g",
                               "   lead and   many    blanks   ",
                               std::string(1023, 'W'),
                               std::string(3000, 'i'),
                               bytes,
                               "some words and a" + std::string(200, 'x') + " long one"};
  for (const std::string& text : texts) {
    for (const int width : {-100, 0, 1, 11, 60, 300, 16384, 1 << 30}) {
      for (TTF_Font* font : {ControlTextBasic::GetFont(), static_cast<TTF_Font*>(nullptr)}) {
        SCOPED_TRACE(testing::Message() << text.substr(0, 20) << " in " << width << (font ? "" : " without font"));
        std::vector<std::string> lines{"before"};
        const int count = ControlChatBox::WrapText(text.c_str(), width, font, lines);
        ASSERT_EQ(lines.size(), 1u + static_cast<std::size_t>(count));
        ASSERT_GT(count, 0);
        std::size_t position = 0;
        for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
          EXPECT_TRUE(!line->empty() || text.empty());
          EXPECT_LE(line->size(), 1023u);
          if (font != nullptr && line->size() > 1) {
            EXPECT_LE(WidthOf(*line), width);
          }
          ASSERT_EQ(text.compare(position, line->size(), *line), 0);
          position += line->size();
          if (position < text.size() && line + 1 != lines.end() && text[position] == ' ') ++position;
        }
        // At most one blank may be dropped at the end, as between any two lines.
        EXPECT_EQ(text.substr(std::min(position, text.size())).find_first_not_of(' '), std::string::npos);
      }
    }
  }
}

TEST_F(ListsTest, WrappingBreaksAtBlanksAndInsideWordsThatAreTooLong) {
  std::vector<std::string> lines;
  EXPECT_EQ(ControlChatBox::WrapText("one two three", WidthOf("one two"), ControlTextBasic::GetFont(), lines), 2);
  EXPECT_EQ(ControlChatBox::WrapText("a mmmmmm b", WidthOf("mmmm"), ControlTextBasic::GetFont(), lines), 3);
  EXPECT_EQ(lines, (std::vector<std::string>{"one two", "three", "a", "mmmm", "mm b"}));
}

TEST_F(ListsTest, AChatShowsNamesOnFirstLinesAndMarksTheServer) {
  ControlChatBox& chat = AddList<ControlChatBox>();
  chat.SetForegroundColor(10, 20, 30);
  chat.SetNameColor(40, 50, 60);
  chat.AddEntry("Ann", "mmmmmmmmmm mmmmmmmmmm");
  chat.AddEntry("Server", "down");
  chat.AddEntry("nobody");
  EXPECT_EQ(RowsOf(chat), (std::vector<std::string>{"[Ann]|mmmmmmmmmm", "|mmmmmmmmmm", "[Server]|down", "|nobody"}));
  const int nameWidth = WidthOf("[Ann]") + 10;
  EXPECT_EQ(PlaceOf(*LabelOf(chat, 0)), (Place{0, 0, nameWidth, 19}));
  EXPECT_EQ(PlaceOf(*LabelOf(chat, 3)), (Place{nameWidth, 19, 284 - nameWidth, 19}));
  const Rgb expected[] = {{40, 50, 60}, {10, 20, 30}, {40, 50, 60}, {10, 20, 30}, {163, 158, 133}, {163, 158, 133}};
  for (std::uint32_t index = 0; index < 6; ++index)
    EXPECT_EQ(LabelOf(chat, index)->GetForegroundColor(), expected[index]);
  EXPECT_FALSE(chat.RemoveEntry("nobody"));
}

TEST_F(ListsTest, AChatFollowsUnlessScrolledBackAndDropsTheOldestLines) {
  ControlChatBox& chat = AddList<ControlChatBox>();
  // See-through, so that its labels refresh it while it makes them.
  chat.SetBackgroundColor(255, 0, 255);
  chat.SetMaxLines(6);
  chat.SetHeight(60);
  for (const char* text : {"1", "2", "3", "4", "5"}) chat.AddEntry(text);
  EXPECT_EQ(RowsOf(chat), (std::vector<std::string>{"|3", "|4", "|5"}));
  Click(mRoot, 290, 5);
  chat.AddEntry("6");
  EXPECT_EQ(RowsOf(chat), (std::vector<std::string>{"|2", "|3", "|4"}));
  for (int click = 0; click < 2; ++click) Click(mRoot, 290, 55);
  chat.AddEntry("7");
  EXPECT_EQ(RowsOf(chat), (std::vector<std::string>{"|5", "|6", "|7"}));
  EXPECT_EQ(chat.GetEntryCount(), 6);
  BarOf(chat).SetValue(0);
  EXPECT_EQ(RowsOf(chat).front(), "|2");
  chat.SetMaxMessages(0);
  chat.AddEntry(std::string(100, 'N').c_str(), std::string(2000, 'm').c_str());
  EXPECT_EQ(chat.GetEntryCount(), 6);
  chat.ClearEntries();
  EXPECT_EQ(chat.GetEntryCount(), 0);
  mRoot.Blit();
}

}  // namespace
}  // namespace tolva::test
