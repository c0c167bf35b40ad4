#include "controls/ControlButton.h"
#include "controls/ControlWindow.h"
#include "controls/ControlsTest.h"

// Replaces SDL's own in this test program, since the dummy driver has no mouse.
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

TEST_F(ControlsTest, AButtonIsPressedUntilTheReleaseWhereverThatIs) {
  ControlButton button(7, nullptr, &mReports, Record);
  button.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, 20, 20));
  EXPECT_TRUE(button.IsPressed());
  button.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONUP, 150, 150));
  EXPECT_FALSE(button.IsPressed());
  EXPECT_EQ(mReports, (Reports{{7, 0}, {7, 1}}));
}

TEST_F(ControlsTest, AToggleChangesWithEachClick) {
  ControlButton toggle(7, nullptr, &mReports, Record);
  toggle.SetToggle(true);
  for (const bool pressed : {true, false}) {
    mReports.clear();
    Click(toggle, 20, 20);
    EXPECT_EQ(toggle.IsPressed(), pressed);
    EXPECT_EQ(mReports, (Reports{{7, 2}, {7, 0}, {7, 1}}));
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
  const struct {
    const char* name;
    int button, x, y;
  } cases[] = {{"right", SDL_BUTTON_RIGHT, 50, 60}, {"left", SDL_BUTTON_LEFT, 57, -10}};
  for (const auto& each : cases) {
    gMouse = {99, 99, static_cast<Uint8>(SDL_BUTTON(each.button))};  // what moved before the press does not count
    mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, 60, 70));
    gMouse.dx += 7;
    gMouse.dy -= 70;
    Click(mRoot, 60, 70, SDL_BUTTON_WHEELUP);
    mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEMOTION, 1, 1));
    EXPECT_EQ(mWindow.GetX(), each.x) << each.name;
    EXPECT_EQ(mWindow.GetY(), each.y) << each.name;
  }
}

TEST_F(WindowTest, ClosesByItsButtonButNotByTheWheel) {
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
