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
  const auto look = [&](bool pressed) {
    button.SetPressed(pressed);
    return PixelAt(button.GetBaseSurface(), 5, 5);
  };
  EXPECT_EQ(look(false), 0xFFFF);
  EXPECT_EQ(look(true), ToPixel(mVideo, 221, 221, 221));
  button.SetBackgroundColor(1, 2, 200);
  EXPECT_EQ(look(true), ToPixel(mVideo, 221, 221, 221));
  EXPECT_EQ(look(false), ToPixel(mVideo, 1, 2, 200));
  button.SetSurfacePressed(picture.get());
  EXPECT_EQ(look(false), ToPixel(mVideo, 1, 2, 200));
  EXPECT_EQ(look(true), 0x1234);
  button.SetSurfaceUnpressed(picture.get());
  button.SetSurfacePressed(nullptr);
  EXPECT_EQ(look(false), 0x1234);
  EXPECT_EQ(look(true), ToPixel(mVideo, 221, 221, 221));
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
    gInputs.dx = dx;
    gInputs.dy = dy;
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
  const auto clickCloseButton = [&] { Click(mRoot, 50 + mWindow.GetWidth() - 10, 60 + 10); };
  mWindow.SetControlBox(false);
  clickCloseButton();
  EXPECT_TRUE(mWindow.IsVisible());
  mWindow.SetControlBox(true);
  mWindow.SetWidth(200);
  clickCloseButton();
  EXPECT_FALSE(mWindow.IsVisible());
  EXPECT_EQ(mReports, (Reports{{5, 0}}));
  EXPECT_EQ(mRoot.GetSubControl(5), &mWindow);
}

TEST_F(WindowTest, TheCaptionBarFollowsTheWidth) {
  ControlBasic* caption = mWindow.GetSubControl(1);
  ControlBasic* close = caption->GetSubControl(0);
  mWindow.SetCaptionColor(255, 0, 255);
  for (const int width : {300, 17, 0}) {
    mWindow.SetSize(width, 100);
    EXPECT_EQ(caption->GetWidth(), width);
    EXPECT_EQ(caption->GetHeight(), ControlWindow::GetCaptionHeight());
    EXPECT_EQ(close->GetX(), width - 17);
    EXPECT_EQ(close->GetY(), 3);
    mRoot.Blit();
  }
}

}  // namespace
}  // namespace tolva::test
