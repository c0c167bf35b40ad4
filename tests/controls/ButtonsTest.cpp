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

TEST_F(ControlsTest, AButtonShowsThePictureOrColorOfItsState) {
  const SurfacePtr picture = MakePicture(4, 4, [](int, int) { return 0x1234; });
  ControlButton button(7, nullptr, nullptr, nullptr);
  button.SetSize(10, 10);
  button.SetBackgroundColorPressed(200, 0, 0);
  for (SDL_Surface* surface : {picture.get(), static_cast<SDL_Surface*>(nullptr)}) {
    button.SetSurfacePressed(surface);
    for (const Uint8 blue : {100, 200}) {
      button.SetPressed(true);
      button.SetBackgroundColor(0, 0, blue);
      EXPECT_EQ(PixelAt(button.GetBaseSurface(), 5, 5), surface != nullptr ? 0x1234 : ToPixel(mVideo, 200, 0, 0));
      button.SetPressed(false);
      EXPECT_EQ(PixelAt(button.GetBaseSurface(), 5, 5), ToPixel(mVideo, 0, 0, blue));
    }
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
    Uint8 buttons;
    bool movable, moves;
  } cases[] = {{SDL_BUTTON(1), true, true}, {SDL_BUTTON(3), true, false}, {SDL_BUTTON(1), false, false}};
  for (const auto& each : cases) {
    mWindow.SetPosition(50, 60);
    mWindow.SetMovable(each.movable);
    gMouse = {99, 99, each.buttons};
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 60, 70));
    gMouse.dx += 7;
    gMouse.dy -= 70;
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 1, 1));
    EXPECT_EQ(mWindow.GetX(), each.moves ? 57 : 50);
    EXPECT_EQ(mWindow.GetY(), each.moves ? -10 : 60);
  }
}

TEST_F(WindowTest, ClosesByItsButtonUnlessItHasNone) {
  // Stretching a see-through caption bar refreshes the window that stretches it.
  mWindow.SetCaptionColor(255, 0, 255);
  for (const bool controlBox : {false, true}) {
    mWindow.SetControlBox(controlBox);
    mWindow.SetWidth(controlBox ? 200 : 120);
    Click(mRoot, 50 + mWindow.GetWidth() - 3, 60 + 3);
    EXPECT_EQ(mWindow.IsVisible(), !controlBox);
  }
  EXPECT_EQ(mReports, (Reports{{5, 0}}));
}

}  // namespace
}  // namespace tolva::test
