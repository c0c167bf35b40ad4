#include <cstring>

#include "controls/ControlsTest.h"

namespace tolva::test {
namespace {

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

  // The focus goes with the control that is removed.
  EXPECT_TRUE(mRoot.RemoveSubControl(2));
  mRoot.HandleSdlEvent({SDL_KEYDOWN});
  EXPECT_EQ(mRoot.mEvents.size(), 1u);
}

// 'L' and 'R' press the left and the right button on the first control, 'l' and 'r' on the second; '<' and '>' release
// them elsewhere. 'k' types into the second, 'd' deletes it.
TEST_F(ControlBasicTest, AReleaseGoesToWhoeverGotThePress) {
  const struct {
    const char* steps;
    std::size_t first, second;  // how many events each gets
  } cases[] = {{"Lk<", 2, 1},  {"L<<", 2, 0}, {"Lr<>", 2, 2}, {"Ll<<", 1, 2},
               {"LR<>", 4, 0}, {"L>", 1, 0},  {"<", 0, 0},    {"ld<", 0, 0}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.steps);
    Probe root(0);
    root.SetSize(200, 200);
    Probe& first = *Add(*Add(root, 1, 10), 3, 0);
    first.SetPosition(0, 0);
    Probe* second = Add(root, 2, 40);
    for (const char step : std::string(each.steps)) {
      const int button = std::strchr("Rr>", step) != nullptr ? SDL_BUTTON_RIGHT : SDL_BUTTON_LEFT;
      if (std::strchr("LRlr", step)) root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, step < 'a' ? 15 : 45, 15, button));
      if (std::strchr("<>", step)) root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 199, 199, button));
      if (step == 'k') {
        second->SetActive(true);
        root.HandleSdlEvent({SDL_KEYDOWN});
      }
      if (step == 'd' && root.RemoveSubControl(2)) second = nullptr;
    }
    EXPECT_EQ(first.mEvents.size(), each.first);
    EXPECT_EQ(second == nullptr ? 0 : second->mEvents.size(), each.second);
    EXPECT_EQ(second != nullptr && second->IsActive(), std::strpbrk(each.steps, "klr") != nullptr && second != nullptr)
        << "a release moves no focus";
    EXPECT_TRUE(root.mEvents.empty());
  }
}

TEST_F(ControlBasicTest, AClickRaisesUnlessTheOrderIsKept) {
  const Uint16 red = ToPixel(mVideo, 255, 0, 0);
  mFirst.SetBackgroundColor(255, 0, 0);
  mSecond.SetX(20);
  for (const bool keepOrder : {true, false}) {
    mFirst.SetKeepOrder(keepOrder);
    Click(mRoot, 12, 12);
    mRoot.Blit();
    EXPECT_EQ(PixelAt(mVideo, 25, 15), keepOrder ? 0xFFFF : red);
  }
}

TEST_F(ControlBasicTest, UnderOverrideSubControlsDrawOntoTheParentsSurface) {
  mRoot.SetOverrideBaseSurface(true);
  Add(mRoot, 4, 50);
  mRoot.SetSize(100, 100);
  for (const std::uint32_t id : {1u, 4u}) EXPECT_EQ(mRoot.GetSubControl(id)->GetParentSurface(), mVideo);
  EXPECT_EQ(Add(mRoot, 5, 70)->GetParentSurface(), mVideo);
}

}  // namespace
}  // namespace tolva::test
