#include <algorithm>
#include <array>

#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/ControlListBox.h"
#include "controls/ControlScrollbar.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

using Place = std::array<int, 4>;
Place PlaceOf(const ControlBasic& control) {
  return {control.GetX(), control.GetY(), control.GetWidth(), control.GetHeight()};
}

TEST_F(ControlsTest, AScrollbarLaysOutItsParts) {
  const SurfacePtr border = MakePicture(32, 32, [](int, int) { return 1; });
  enum Direction { kHorizontal, kVertical };
  enum Frame { kPlain, kFramed };
  // The bar is 132 long and 18 thick, so the track is 100 long.
  const struct {
    Direction direction;
    Frame frame;
    int maximum, value;
    Place thumb;
  } cases[] = {{kVertical, kPlain, 10, 0, {0, 0, 18, 16}},    {kVertical, kPlain, 10, 10, {0, 84, 18, 16}},
               {kVertical, kFramed, 3, 2, {2, 55, 14, 16}},   {kVertical, kFramed, 0, 0, {2, 2, 14, 16}},
               {kHorizontal, kPlain, 10, 5, {42, 0, 16, 16}}, {kHorizontal, kFramed, 10, 10, {82, 2, 16, 12}}};
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    const bool vertical = each.direction == kVertical;
    ControlScrollbar bar(4, mVideo, nullptr, nullptr);
    bar.SetVertical(vertical);
    if (each.frame == kFramed) bar.SetBorderSurface(border.get());
    bar.SetMaximum(each.maximum);
    bar.SetSize(vertical ? 18 : 132, vertical ? 132 : 18);
    bar.SetValue(each.value);
    ControlBasic* track = bar.GetSubControl(2);
    EXPECT_EQ(PlaceOf(*bar.GetSubControl(0)), (vertical ? Place{0, 116, 18, 16} : Place{116, 0, 16, 18}));
    EXPECT_EQ(PlaceOf(*bar.GetSubControl(1)), (vertical ? Place{0, 0, 18, 16} : Place{0, 0, 16, 18}));
    EXPECT_EQ(PlaceOf(*track), (vertical ? Place{0, 16, 18, 100} : Place{16, 0, 100, 18}));
    EXPECT_EQ(PlaceOf(*track->GetSubControl(3)), each.thumb);
    bar.SetSize(0, 0);
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
  const std::pair<int, int> clicks[] = {{90, 1}, {90, 2}, {90, 2}, {5, 1}, {50, 1}, {17, 1}, {5, 0}, {5, 0}};
  for (const auto& [y, value] : clicks) {
    Click(bar, 8, y);
    EXPECT_EQ(bar.GetValue(), value);
  }
  EXPECT_EQ(mReports, (Reports{{4, 1}, {4, 0}, {4, 0}, {4, 0}, {4, 0}}));
  bar.SetMaximum(2147483647);
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
  using Texts = std::vector<std::string>;

  // The texts of the rows' labels.
  static Texts TextsOf(ControlListBox& list) {
    Texts texts;
    for (std::uint32_t index = 0; LabelOf(list, index) != nullptr; ++index) {
      texts.push_back(LabelOf(list, index)->GetText());
    }
    return texts;
  }

  ControlBasic mRoot{0, mVideo, nullptr, nullptr};
};

TEST_F(ListsTest, AsManyRowsAsFit) {
  const SurfacePtr border = MakePicture(32, 32, [](int, int) { return 1; });
  const struct {
    int height, border, rows;
  } cases[] = {{200, 2, 10}, {200, 0, 10}, {0, 0, 0},  {19, 0, 0}, {20, 0, 1},
               {38, 0, 1},   {39, 0, 2},   {25, 2, 0}, {26, 2, 1}, {45, 2, 2}};
  for (const auto& each : cases) {
    ControlListBox& list = AddList<ControlListBox>();
    list.SetBorderSurface(each.border > 0 ? border.get() : nullptr);
    list.SetHeight(each.height);
    EXPECT_EQ(TextsOf(list).size(), static_cast<std::size_t>(each.rows)) << each.height;
  }
}

TEST_F(ListsTest, AListScrollsThroughAllItsEntries) {
  ControlListBox& list = AddList<ControlListBox>();
  list.SetHeight(60);
  list.AddEntry("only");
  EXPECT_EQ(TextsOf(list), (Texts{"only", "", ""}));
  EXPECT_EQ(PlaceOf(BarOf(list)), (Place{284, 0, 16, 60}));
  EXPECT_EQ(PlaceOf(*LabelOf(list, 2)), (Place{0, 38, 284, 19}));
  for (const char* text : {"b", "c", "d", "c"}) list.AddEntry(text);
  EXPECT_EQ(TextsOf(list), (Texts{"only", "b", "c"}));

  // A row has the focus when the arrow is clicked, and is gone when the next event comes.
  Click(mRoot, 20, 30);
  for (int click = 0; click < 3; ++click) Click(mRoot, 290, 55);
  EXPECT_EQ(TextsOf(list), (Texts{"c", "d", "c"}));
  Click(mRoot, 20, 30);
  EXPECT_FALSE(list.RemoveEntry("cc"));
  EXPECT_TRUE(list.RemoveEntry("c"));
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 20, 30));
  EXPECT_EQ(TextsOf(list), (Texts{"b", "d", "c"}));

  list.SetForegroundColor(1, 2, 3);
  EXPECT_EQ(LabelOf(list, 2)->GetForegroundColor(), (Rgb{1, 2, 3}));
  list.ClearEntries();
  list.AddEntry(std::string(400, 'x').c_str());
  EXPECT_EQ(TextsOf(list), (Texts{std::string(255, 'x'), "", ""}));
}

TEST_F(ListsTest, WrappingLosesNothingAndAlwaysEnds) {
  std::string bytes;
  for (int byte = 255; byte > 0; --byte) bytes.push_back(static_cast<char>(byte));
  for (const std::string& text : {std::string(), std::string("a "), std::string("   many    blanks   "), bytes,
                                  std::string(3000, 'i'), "word and a" + std::string(200, 'x') + " long one"}) {
    for (const int width : {-100, 0, 1, 11, 60, 300, 16384, 1 << 30}) {
      for (TTF_Font* font : {ControlTextBasic::GetFont(), static_cast<TTF_Font*>(nullptr)}) {
        SCOPED_TRACE(testing::Message() << text.substr(0, 20) << " in " << width << (font ? "" : " without font"));
        Texts lines;
        const int count = ControlChatBox::WrapText(text.c_str(), width, font, lines);
        ASSERT_EQ(lines.size(), static_cast<std::size_t>(count));
        std::size_t position = 0;
        for (const std::string& line : lines) {
          EXPECT_EQ(line.empty(), text.empty());
          EXPECT_LE(line.size(), 1023u);
          EXPECT_TRUE(font == nullptr || line.size() == 1 || WidthOf(line) <= std::max(0, width));
          ASSERT_EQ(text.compare(position, line.size(), line), 0);
          position += line.size();
          // Only a blank where a line was broken may be missing.
          if (position < text.size() && text[position] == ' ') ++position;
        }
        EXPECT_EQ(position, text.size());
      }
    }
  }
}

TEST_F(ListsTest, WrappingBreaksAtBlanksAndInsideWordsThatAreTooLong) {
  TTF_Font* font = ControlTextBasic::GetFont();
  Texts lines;
  EXPECT_EQ(ControlChatBox::WrapText("one two three", WidthOf("one two"), font, lines), 2);
  EXPECT_EQ(ControlChatBox::WrapText("a mmmmmm b", WidthOf("mmmm"), font, lines), 3);
  EXPECT_EQ(lines, (Texts{"one two", "three", "a", "mmmm", "mm b"}));
}

TEST_F(ListsTest, AChatShowsNamesOnFirstLinesAndMarksTheServer) {
  ControlChatBox& chat = AddList<ControlChatBox>();
  chat.SetHeight(90);
  chat.SetForegroundColor(10, 20, 30);
  chat.SetNameColor(40, 50, 60);
  chat.AddEntry("Ann", "mmmmmmmmmm mmmmmmmmmm");
  chat.AddEntry("Server", "down");
  chat.AddEntry("nobody");
  EXPECT_EQ(TextsOf(chat), (Texts{"[Ann]", "mmmmmmmmmm", "", "mmmmmmmmmm", "[Server]", "down", "", "nobody"}));
  const int nameWidth = WidthOf("[Ann]") + 10;
  EXPECT_EQ(PlaceOf(*LabelOf(chat, 0)), (Place{0, 0, nameWidth, 19}));
  EXPECT_EQ(PlaceOf(*LabelOf(chat, 3)), (Place{nameWidth, 19, 284 - nameWidth, 19}));
  const Rgb colors[] = {{40, 50, 60}, {10, 20, 30}, {40, 50, 60}, {10, 20, 30}, {163, 158, 133}, {163, 158, 133}};
  std::uint32_t index = 0;
  for (const Rgb& color : colors) EXPECT_EQ(LabelOf(chat, index++)->GetForegroundColor(), color);
}

TEST_F(ListsTest, AChatFollowsUnlessScrolledBackAndDropsTheOldestLines) {
  ControlChatBox& chat = AddList<ControlChatBox>();
  // See-through, so that its labels refresh it while it makes them.
  chat.SetBackgroundColor(255, 0, 255);
  chat.SetMaxLines(6);
  chat.SetHeight(60);
  for (const char* text : {"1", "2", "3", "4", "5"}) chat.AddEntry(text);
  EXPECT_EQ(TextsOf(chat), (Texts{"", "3", "", "4", "", "5"}));
  Click(mRoot, 290, 5);
  chat.AddEntry("6");
  EXPECT_EQ(TextsOf(chat), (Texts{"", "2", "", "3", "", "4"}));
  for (int click = 0; click < 2; ++click) Click(mRoot, 290, 55);
  chat.AddEntry("7");
  EXPECT_EQ(TextsOf(chat), (Texts{"", "5", "", "6", "", "7"}));
  BarOf(chat).SetValue(0);
  EXPECT_EQ(TextsOf(chat), (Texts{"", "2", "", "3", "", "4"}));
  LabelOf(chat, 0)->SetText("see-through");
  chat.AddEntry(std::string(100, 'N').c_str(), std::string(2000, 'm').c_str());
  EXPECT_EQ(chat.GetEntryCount(), 6);
  mRoot.Blit();
}

}  // namespace
}  // namespace tolva::test
