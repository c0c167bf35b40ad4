#include "controls/ControlButton.h"
#include "controls/ControlWindow.h"
#include "controls/ControlsTest.h"

// Stands in for SDL's own when the test program is linked, for the dummy driver has no mouse.
namespace {
struct {
  int dx, dy;
  Uint8 buttons;
} gMouse;
}  // namespace
extern "C" Uint8 SDLCALL SDL_GetRelativeMouseState(int* x, int* y) {
  if (x != nullptr) *x = gMouse.dx;
  if (y != nullptr) *y = gMouse.dy;
  gMouse.dx = gMouse.dy = 0;
  return gMouse.buttons;
}

namespace tolva::test {
namespace {

TEST_F(ControlsTest, AButtonHoldsOrTogglesAndReports) {
  ControlButton button(7, nullptr, &mReports, Record);
  button.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 20, 20));
  EXPECT_TRUE(button.IsPressed());
  button.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 150, 150));
  EXPECT_FALSE(button.IsPressed());
  EXPECT_EQ(mReports, (Reports{{7, 0}, {7, 1}}));

  button.SetToggle(true);
  for (const bool pressed : {true, false}) {
    mReports.clear();
    Click(button, 20, 20);
    EXPECT_EQ(mReports, (Reports{{7, 2}, {7, 0}, {7, 1}}));
    EXPECT_EQ(button.IsPressed(), pressed);
  }
}

class WindowTest : public ControlsTest {
 protected:
  WindowTest() : mWindow(*new ControlWindow(5, nullptr, &mReports, Record)) {
    mRoot.SetSize(400, 400);
    mRoot.AddSubControl(&mWindow);
    mWindow.SetPosition(50, 60, 120, 90);
  }

  ControlBasic mRoot{0, mVideo, nullptr, nullptr};
  ControlWindow& mWindow;
};

TEST_F(WindowTest, IsDraggedByItsCaptionWithTheLeftButton) {
  for (const int button : {3, 1}) {
    gMouse = {99, 99, static_cast<Uint8>(SDL_BUTTON(button))};
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 60, 70));
    gMouse.dx += 7;
    gMouse.dy -= 70;
    Click(mRoot, 60, 70, SDL_BUTTON_WHEELUP);
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 1, 1));
    EXPECT_EQ(mWindow.GetX(), button == 1 ? 57 : 50);
    EXPECT_EQ(mWindow.GetY(), button == 1 ? -10 : 60);
  }
}

TEST_F(WindowTest, ClosesByItsButton) {
  // Stretching a see-through caption bar refreshes the window that stretches it.
  mWindow.SetCaptionColor(255, 0, 255);
  mWindow.SetWidth(200);
  for (const int button : {SDL_BUTTON_WHEELUP, SDL_BUTTON_WHEELDOWN, SDL_BUTTON_LEFT}) {
    EXPECT_TRUE(mWindow.IsVisible());
    Click(mRoot, 50 + 200 - 3, 60 + 3, button);
  }
  EXPECT_FALSE(mWindow.IsVisible());
  EXPECT_EQ(mReports, (Reports{{5, 0}}));
}

}  // namespace
}  // namespace tolva::test
