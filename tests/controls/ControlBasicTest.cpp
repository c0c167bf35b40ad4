#include <stdexcept>

#include "controls/ControlBasic.h"
#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

// Counts its refreshes and keeps the events that end at it.
class Probe : public ControlBasic {
 public:
  explicit Probe(std::uint32_t id) : ControlBasic(id, nullptr, nullptr, nullptr) {}
  void Refresh(bool recursive) override {
    ++mRefreshes;
    ControlBasic::Refresh(recursive);
  }
  void SdlEventHandler(SDL_Event event) override {
    if (event.type == SDL_USEREVENT) throw std::runtime_error("foreign");
    mEvents.push_back(event);
  }

  int mRefreshes = 0;
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
    bool secondCanBeClicked;
    std::uint32_t hit;
  } cases[] = {{10, 10, true, 1}, {9, 10, true, 0},  {10, 30, true, 1},  {10, 31, true, 0}, {30, 30, true, 2},
               {50, 30, true, 2}, {51, 30, true, 0}, {30, 10, false, 1}, {40, 10, false, 0}};
  for (const bool hide : {false, true}) {
    for (const auto& each : cases) {
      SCOPED_TRACE(testing::Message() << each.x << "," << each.y);
      mSecond.SetVisible(each.secondCanBeClicked || !hide);
      mSecond.SetEnabled(each.secondCanBeClicked || hide);
      mFirst.SetKeepOrder(true);
      mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, each.x, each.y));
      EXPECT_EQ(mFirst.IsActive(), each.hit == 1);
      EXPECT_EQ(mSecond.IsActive(), each.hit == 2);
      EXPECT_EQ(mRoot.mEvents.size(), each.hit == 0);
      mRoot.mEvents.clear();
    }
  }
}

TEST_F(ControlBasicTest, OnlyPressesArriveInTheReceiversCoordinatesAndEverythingElseFollowsTheFocus) {
  mSecond.SetX(-5);
  Probe& inner = *Add(mSecond, 3, 4);
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, 3, 25));
  mRoot.HandleSdlEvent(Mouse(SDL_MOUSEMOTION, 180, 170));
  mRoot.HandleSdlEvent(Key(SDLK_a));
  ASSERT_EQ(inner.mEvents.size(), 3u);
  EXPECT_EQ(inner.mEvents[0].button.x, 3 + 5 - 4);
  EXPECT_EQ(inner.mEvents[0].button.y, 25 - 10 - 10);
  EXPECT_EQ(inner.mEvents[1].motion.x, 180);
  EXPECT_TRUE(mRoot.mEvents.empty());

  // The focus goes with the control that is removed, and an unknown one changes nothing.
  EXPECT_FALSE(mRoot.RemoveSubControl(3));
  EXPECT_TRUE(mRoot.RemoveSubControl(2));
  EXPECT_EQ(mRoot.GetSubControl(2), nullptr);
  mRoot.HandleSdlEvent(Key(SDLK_a));
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
  EXPECT_EQ(BlitAndLookAt(12, 15), red);
  mFirst.SetVisible(false);
  mRoot.SetClearOnBlit(true);
  EXPECT_EQ(BlitAndLookAt(12, 15), 0xFFFF);
}

TEST_F(ControlBasicTest, SizesAreKeptInRangeAndRebuildOnce) {
  mRoot.mRefreshes = 0;
  mRoot.SetPosition(7, 8, 200, 200);
  mRoot.SetWidth(200);
  EXPECT_EQ(mRoot.mRefreshes, 0);
  mRoot.SetPosition(9, 9, 100, 50);
  mRoot.SetSize(100, 50);
  EXPECT_EQ(mRoot.mRefreshes, 2);
  EXPECT_EQ(mFirst.GetParentSurface(), mRoot.GetBaseSurface());
  EXPECT_EQ(mRoot.GetBaseSurface()->w, 100);

  mRoot.SetWidth(-5);
  mRoot.SetPosition(70000, -70000);
  EXPECT_EQ(mRoot.GetWidth(), 0);
  EXPECT_EQ(mRoot.GetX(), 32767);
  EXPECT_EQ(mRoot.GetY(), -32768);
  mRoot.Blit();
}

TEST_F(ControlBasicTest, ASurfaceThatCannotBeBuiltIsAnErrorAndLeavesNothingDangling) {
  EXPECT_EQ(ErrorOf([&] { mRoot.SetWidth(70000); }).find("ControlBasic CreateBaseSurface "), 0u);
  EXPECT_EQ(mRoot.GetWidth(), 65535);
  EXPECT_EQ(mFirst.GetParentSurface(), nullptr);
  mRoot.Refresh(true);
  mRoot.Blit();
  mRoot.SetWidth(100);
  EXPECT_EQ(mFirst.GetParentSurface(), mRoot.GetBaseSurface());

  EXPECT_EQ(ErrorOf([&] { mRoot.HandleSdlEvent(Mouse(SDL_USEREVENT)); }), "ControlBasic HandleSdlEvent Runtime Error");
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
  EXPECT_EQ(ErrorOf([] { Probe early(1); }).find("ControlBasic CreateBaseSurface "), 0u);
}

TEST_F(ControlBasicTest, ASeeThroughControlShowsItsParentAnew) {
  Probe& inner = *Add(mFirst, 3, 5);
  inner.SetBackgroundColor(255, 0, 255);
  mFirst.SetBackgroundColor(255, 0, 255);
  for (Probe* probe : {&mRoot, &mFirst, &mSecond, &inner}) probe->mRefreshes = 0;
  inner.Refresh(true);
  EXPECT_EQ(mRoot.mRefreshes, 1);
  EXPECT_EQ(mFirst.mRefreshes, 1);
  EXPECT_EQ(mSecond.mRefreshes, 0);
  mRoot.SetBackgroundColor(10, 20, 30);
  EXPECT_EQ(BlitAndLookAt(17, 22), ToPixel(mVideo, 10, 20, 30));
}

TEST_F(ControlBasicTest, OverridingControlsLetTheirChildrenDrawOnTheParent) {
  mFirst.SetBackgroundColor(255, 0, 0);
  SDL_FillRect(mVideo, nullptr, 0);
  mRoot.SetOverrideBaseSurface(true);
  EXPECT_EQ(BlitAndLookAt(12, 12), ToPixel(mVideo, 255, 0, 0));
  EXPECT_EQ(PixelAt(mVideo, 5, 5), 0);
  mRoot.SetSize(300, 300);
  EXPECT_EQ(mFirst.GetParentSurface(), mVideo);
  mRoot.SetOverrideBaseSurface(false);
  EXPECT_EQ(mFirst.GetParentSurface(), mRoot.GetBaseSurface());
}

TEST_F(ControlBasicTest, TheFrameIsCutFromTheBorderPicture) {
  const SurfacePtr border = MakePicture(32, 32, [](int x, int y) { return x * 64 + y + 1; });
  const struct { int w, h; } sizes[] = {{61, 33}, {28, 56}, {200, 3}, {2, 2}, {1, 1}, {0, 40}, {0, 0}};
  for (const auto& [w, h] : sizes) {
    SCOPED_TRACE(testing::Message() << w << "x" << h);
    mFirst.SetBorderSurface(border.get());
    mFirst.SetSize(w, h);
    // What the picture holds for a distance from the near and from the far edge.
    const auto piece = [](int at, int length) { return at >= length - 2 ? 30 + at - (length - 2) : at < 2 ? at : -1; };
    for (int y = 0; y < h; ++y) {
      for (int x = 0; x < w; ++x) {
        const int column = piece(x, w);
        const int row = piece(y, h);
        const bool inside = column < 0 && row < 0;
        const int pictureX = column < 0 ? 2 + x % 28 : column;
        const int pictureY = row < 0 ? 2 + y % 28 : row;
        const Uint16 expected = inside ? 0xFFFF : PixelAt(border.get(), pictureX, pictureY);
        ASSERT_EQ(PixelAt(mFirst.GetBaseSurface(), x, y), expected) << x << "," << y;
      }
    }
  }
}

TEST_F(ControlBasicTest, APictureIsTiledAndOneWithoutPixelsIsNoPicture) {
  const SurfacePtr tile = MakePicture(7, 5, [](int x, int y) { return x * 8 + y; });
  const SurfacePtr nothing = MakePicture(0, 0, [](int, int) { return 0; });
  mFirst.SetBackgroundSurface(tile.get());
  EXPECT_EQ(PixelAt(mFirst.GetBaseSurface(), 19, 13), PixelAt(tile.get(), 5, 3));
  mFirst.SetBackgroundSurface(nothing.get());
  EXPECT_EQ(PixelAt(mFirst.GetBaseSurface(), 19, 13), 0xFFFF);
}

}  // namespace
}  // namespace tolva::test
