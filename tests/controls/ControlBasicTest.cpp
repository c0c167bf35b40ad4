#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

// Keeps the events that end at it.
class Probe : public ControlBasic {
 public:
  explicit Probe(std::uint32_t id) : ControlBasic(id, nullptr, nullptr, nullptr) {}
  void SdlEventHandler(SDL_Event event) override { mEvents.push_back(event); }

  std::vector<SDL_Event> mEvents;
};

// A root of 200 by 200 on the video surface that holds two children of 20 by 20 side by side, the second on top.
class ControlBasicTest : public ControlsTest {
 protected:
  ControlBasicTest() : mRoot(0), mFirst(*Add(mRoot, 1, 10)), mSecond(*Add(mRoot, 2, 30)) {
    mRoot.SetParentSurface(mVideo);
    mRoot.SetSize(200, 200);
  }

  static Probe* Add(ControlBasic& parent, std::uint32_t id, int x) {
    auto* child = new Probe(id);
    child->SetPosition(x, 10, 20, 20);
    parent.AddSubControl(child);
    return child;
  }
  Uint16 BlitAndLookAt(int x, int y) {
    mRoot.Blit();
    return PixelAt(mVideo, x, y);
  }

  Probe mRoot;
  Probe& mFirst;
  Probe& mSecond;
};

TEST_F(ControlBasicTest, APressGoesToTheTopmostThatCanBeClicked) {
  const struct {
    int x, y;
    bool visible, enabled;
    std::uint32_t hit;
  } cases[] = {{10, 10, true, true, 1}, {9, 10, true, true, 0},   {10, 31, true, true, 0},  {30, 30, true, true, 2},
               {51, 30, true, true, 0}, {30, 10, false, true, 1}, {30, 10, true, false, 1}, {40, 10, true, false, 0}};
  mFirst.SetKeepOrder(true);
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    mRoot.mEvents.clear();
    mSecond.SetVisible(each.visible);
    mSecond.SetEnabled(each.enabled);
    mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, each.x, each.y));
    EXPECT_EQ(mFirst.IsActive(), each.hit == 1);
    EXPECT_EQ(mSecond.IsActive(), each.hit == 2);
    EXPECT_EQ(mRoot.mEvents.size(), each.hit == 0);
  }
}

TEST_F(ControlBasicTest, OnlyPressesArriveInTheReceiversCoordinatesAndEverythingElseFollowsTheFocus) {
  mSecond.SetX(-5);
  Probe& inner = *Add(mSecond, 3, 4);
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 3, 25));
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 180, 170));
  mRoot.HandleSdlEvent({SDL_KEYDOWN});
  ASSERT_EQ(inner.mEvents.size(), 3u);
  EXPECT_EQ(inner.mEvents[0].button.x, 3 + 5 - 4);
  EXPECT_EQ(inner.mEvents[0].button.y, 25 - 10 - 10);
  EXPECT_EQ(inner.mEvents[1].button.x, 180);

  // The focus goes with the control that is removed, and an unknown one changes nothing.
  EXPECT_FALSE(mRoot.RemoveSubControl(3));
  EXPECT_TRUE(mRoot.RemoveSubControl(2));
  mRoot.HandleSdlEvent({SDL_KEYDOWN});
  EXPECT_EQ(mRoot.mEvents.size(), 1u);
}

TEST_F(ControlBasicTest, AClickRaisesUnlessTheOrderIsKept) {
  const Uint16 red = ToPixel(mVideo, 255, 0, 0);
  mFirst.SetBackgroundColor(255, 0, 0);
  mSecond.SetX(20);
  for (const bool keepOrder : {true, false}) {
    mFirst.SetKeepOrder(keepOrder);
    Click(mRoot, 12, 12);
    EXPECT_EQ(BlitAndLookAt(25, 15), keepOrder ? 0xFFFF : red);
  }
  mFirst.SetVisible(false);
  mRoot.SetClearOnBlit(true);
  EXPECT_EQ(BlitAndLookAt(12, 15), 0xFFFF);
}

TEST_F(ControlBasicTest, ABackgroundPictureIsTiledAndAFrameIsCutFromItsPicture) {
  const SurfacePtr border = MakePicture(32, 32, [](int x, int y) { return x * 64 + y + 1; });
  const SurfacePtr tile = MakePicture(7, 5, [](int x, int y) { return x * 8 + y; });
  const SurfacePtr nothing = MakePicture(0, 0, [](int, int) { return 0; });
  mFirst.SetBorderSurface(border.get());
  mFirst.SetBackgroundSurface(tile.get());
  mFirst.SetSize(61, 33);
  const struct {
    int x, y, borderX, borderY;
  } cases[] = {{0, 0, 0, 0},  {60, 0, 31, 0},  {1, 32, 1, 31}, {59, 31, 30, 30},
               {30, 1, 4, 1}, {29, 32, 3, 31}, {0, 29, 0, 3},  {60, 5, 31, 7}};
  for (const auto& [x, y, borderX, borderY] : cases) {
    EXPECT_EQ(PixelAt(mFirst.GetBaseSurface(), x, y), PixelAt(border.get(), borderX, borderY)) << x << "," << y;
  }
  EXPECT_EQ(PixelAt(mFirst.GetBaseSurface(), 19, 13), PixelAt(tile.get(), 5, 3));
  mFirst.SetBackgroundSurface(nothing.get());
  EXPECT_EQ(PixelAt(mFirst.GetBaseSurface(), 19, 13), 0xFFFF);
  for (const int size : {2, 1, 0}) mFirst.SetSize(size, size);
}

}  // namespace
}  // namespace tolva::test
