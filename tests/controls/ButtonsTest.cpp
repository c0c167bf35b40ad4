#include "controls/ControlButton.h"
#include "controls/ControlWindow.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

TEST_F(ControlsTest, AButtonHoldsOrTogglesAndReports) {
  ControlBasic root(0, mVideo, nullptr, nullptr);
  root.SetSize(200, 200);
  auto* button = new ControlButton(7, nullptr, &mReports, Record);
  button->SetPosition(10, 10, 30, 20);
  root.AddSubControl(button);

  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 20, 20));
  EXPECT_TRUE(button->IsPressed());
  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 150, 150));
  EXPECT_FALSE(button->IsPressed());
  EXPECT_EQ(mReports, (Reports{{7, 0}, {7, 1}}));

  button->SetToggle(true);
  for (const bool pressed : {true, false}) {
    mReports.clear();
    Click(root, 20, 20);
    EXPECT_EQ(mReports, (Reports{{7, 2}, {7, 0}, {7, 1}}));
    EXPECT_EQ(button->IsPressed(), pressed);
  }
}

TEST_F(ControlsTest, AButtonShowsThePictureOrColorOfItsState) {
  const SurfacePtr picture = MakePicture(4, 4, [](int, int) { return 0x1234; });
  ControlButton button(7, nullptr, nullptr, nullptr);
  button.SetSize(10, 10);
  button.SetSurfacePressed(picture.get());
  for (const Uint8 blue : {100, 200}) {
    button.SetPressed(true);
    button.SetBackgroundColor(0, 0, blue);
    EXPECT_EQ(PixelAt(button.GetBaseSurface(), 5, 5), 0x1234);
    button.SetPressed(false);
    EXPECT_EQ(PixelAt(button.GetBaseSurface(), 5, 5), ToPixel(mVideo, 0, 0, blue));
  }
}

class WindowTest : public ControlsTest {
 protected:
  WindowTest() : mWindow(*new ControlWindow(5, nullptr, &mReports, Record)) {
    mRoot.SetSize(400, 400);
    mRoot.AddSubControl(&mWindow);
    mWindow.SetPosition(50, 60, 120, 90);
  }
  // Presses on the caption bar at (x, y) of the window and moves the mouse by (dx, dy) with the buttons held.
  void Drag(int dx, int dy, Uint8 buttons) {
    gInputs = {99, 99, buttons, 0};
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, mWindow.GetX() + 10, mWindow.GetY() + 10));
    gInputs.dx += dx;
    gInputs.dy += dy;
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 1, 1));
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 1, 1));
  }

  ControlBasic mRoot{0, mVideo, nullptr, nullptr};
  ControlWindow& mWindow;
};

TEST_F(WindowTest, IsDraggedByItsCaptionWithTheLeftButton) {
  const struct {
    Uint8 buttons;
    bool movable;
    bool moves;
  } cases[] = {
      {SDL_BUTTON(1), true, true}, {SDL_BUTTON(3), true, false}, {0, true, false}, {SDL_BUTTON(1), false, false}};
  for (const auto& each : cases) {
    mWindow.SetPosition(50, 60);
    mWindow.SetMovable(each.movable);
    Drag(7, -70, each.buttons);
    EXPECT_EQ(mWindow.GetX(), each.moves ? 57 : 50);
    EXPECT_EQ(mWindow.GetY(), each.moves ? -10 : 60);
  }
  EXPECT_TRUE(mReports.empty());
}

TEST_F(WindowTest, ClosesByItsButtonUnlessItHasNone) {
  // See-through, so that stretching the caption bar refreshes the window that stretches it.
  mWindow.SetCaptionColor(255, 0, 255);
  for (const bool controlBox : {false, true}) {
    mWindow.SetControlBox(controlBox);
    mWindow.SetWidth(controlBox ? 200 : 120);
    Click(mRoot, 50 + mWindow.GetWidth() - 3, 60 + 3);
    EXPECT_EQ(mWindow.IsVisible(), !controlBox);
  }
  EXPECT_EQ(mReports, (Reports{{5, 0}}));
  EXPECT_EQ(mRoot.GetSubControl(5), &mWindow);
}

}  // namespace
}  // namespace tolva::test
