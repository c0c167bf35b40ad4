#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlWindow.h"
#include "controls/ControlsTest.h"
#include "foundation/Ticks.h"
#include "support/Golden.h"

namespace tolva::test {
namespace {

// A window with one of each control, on stripes that show through where a control is see-through.
class PaintTest : public TextTest {
 protected:
  PaintTest() {
    // Keeps the cursor from blinking.
    SetTickSource([] { return std::uint32_t{1000}; });
    mRoot.SetSize(320, 220);
    mRoot.SetBackgroundSurface(mStripes.get());
    mWindow.SetBackgroundSurface(mTile.get());
    mWindow.SetBorderSurface(mFrame.get());
    mWindow.SetCaption(" Caption");
    mWindow.SetCloseButtonSurfaces(mPressed.get(), mReleased.get());
    mRoot.SetParentSurface(mVideo);
    AddButtons();
    AddLabels();
    AddLists();
    AddTextBox();
  }
  ~PaintTest() override { SetTickSource(nullptr); }

  template <typename Control>
  Control& Add(std::uint32_t id, int x, int y, int width, int height) {
    auto* control = new Control(id, nullptr, nullptr, nullptr);
    (id == 1 ? mRoot : mWindow).AddSubControl(control);
    control->SetPosition(x, y, width, height);
    return *control;
  }

  void AddButtons() {
    for (const bool pressed : {false, true}) {
      auto& button = Add<ControlButton>(2, pressed ? 50 : 8, 26, 36, 18);
      button.SetSurfacePressed(mPressed.get());
      button.SetSurfaceUnpressed(mReleased.get());
      button.SetBorderSurface(mFrame.get());
      button.SetText(pressed ? "in" : "out");
      button.SetPressed(pressed);
    }
  }

  void AddLabels() {
    mUnder.SetBackgroundColor(0, 0, 255);
    for (ControlLabel* label : {&mHeading, &mPlain}) label->SetBackgroundColor(255, 0, 255);
    mHeading.SetUnderline(true);
    mHeading.SetForegroundColor(255, 255, 0);
    mHeading.SetText("Heading");
    mPlain.SetForegroundColor(255, 255, 255);
    mPlain.SetAlignment(ControlLabel::kBottomRight);
    mPlain.SetText("plain");
  }

  void AddLists() {
    mList.SetForegroundColor(255, 200, 0);
    mChat.SetForegroundColor(255, 255, 255);
    mChat.SetNameColor(251, 247, 195);
    for (ControlListBox* list : {&mList, static_cast<ControlListBox*>(&mChat)}) {
      list->SetBackgroundColor(255, 0, 255);
      list->SetBorderSurface(mFrame.get());
      list->SetIncrementButtonSurfaces(mPressed.get(), mReleased.get());
      list->SetDecrementButtonSurfaces(mPressed.get(), mReleased.get());
      list->SetScrollbarBackgroundSurface(mTile.get());
      list->SetScrollbarValueBackgroundColor(0, 255, 0);
    }
    for (const char* text : {"one", "two", "three", "four", "five", "six", "seven", "eight"}) mList.AddEntry(text);
    mChat.AddEntry("Ann", "hello");
    mChat.AddEntry("Server", "a line that goes on in a row of its own");
    mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, 40, 110, SDL_BUTTON_WHEELDOWN));
  }

  void AddTextBox() {
    mBox.SetBackgroundColor(0, 0, 0);
    mBox.SetForegroundColor(255, 255, 255);
    mBox.SetBorderSurface(mFrame.get());
    mBox.SetText("typed");
    mBox.SetActive(true);
    mRoot.HandleSdlEvent(KeyEvent(Key(SDLK_LEFT)));
  }

  auto Matches(const char* golden) {
    mRoot.Blit();
    return MatchesGolden(golden, *mVideo, {0, 0, 320, 220});
  }

  SurfacePtr mStripes = MakePicture(8, 8, [this](int x, int) { return ToPixel(mVideo, x * 8, 96, 64); });
  SurfacePtr mTile = MakePicture(16, 16, [this](int x, int y) { return ToPixel(mVideo, 40, 40 + 4 * x, 40 + 4 * y); });
  SurfacePtr mFrame =
      MakePicture(32, 32, [this](int x, int y) { return ToPixel(mVideo, 255 - 4 * x, 255 - 4 * y, 128); });
  SurfacePtr mPressed = MakePicture(9, 9, [this](int x, int y) { return ToPixel(mVideo, 200, 20 * x, 10 * y); });
  SurfacePtr mReleased = MakePicture(9, 9, [this](int x, int y) { return ToPixel(mVideo, 20 * x, 160, 10 * y); });
  ControlBasic mRoot{0, nullptr, nullptr, nullptr};
  ControlWindow& mWindow = Add<ControlWindow>(1, 10, 10, 300, 200);
  ControlLabel& mUnder = Add<ControlLabel>(2, 100, 24, 120, 40);
  ControlLabel& mHeading = Add<ControlLabel>(3, 106, 28, 100, 20);
  ControlLabel& mPlain = Add<ControlLabel>(4, 150, 34, 140, 24);
  ControlListBox& mList = Add<ControlListBox>(5, 8, 70, 90, 84);
  ControlChatBox& mChat = Add<ControlChatBox>(6, 106, 70, 186, 84);
  ControlTextBox& mBox = Add<ControlTextBox>(7, 8, 164, 120, 24);
};

TEST_F(PaintTest, ControlsLookLikeTheGoldenPictures) {
  EXPECT_TRUE(Matches("toolkit"));
  mHeading.SetText("New");
  mPlain.SetText("changed");
  mBox.SetText("type");
  EXPECT_TRUE(Matches("toolkit-changed")) << "nothing is left of the old texts";
}

TEST_F(PaintTest, AWindowMayBeNarrowerThanItsFrame) {
  for (const int size : {3, 1, 0}) EXPECT_NO_THROW(mWindow.SetSize(size, size)) << size;
}

}  // namespace
}  // namespace tolva::test
