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

// A root of 200 by 200 on the video surface with two children of 20 by 20 side by side, the second in front.
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

  static std::string FindFocus(const Probe& first, const Probe& second) {
    if (second.IsActive()) return "second";
    return first.IsActive() ? "first" : "neither";
  }

  Probe mRoot;
  Probe& mFirst;
  Probe& mSecond;
};

TEST_F(ControlBasicTest, APressGoesToTheFrontmostThatCanBeClicked) {
  const struct {
    const char* name;
    int x, y;
    bool secondIsVisible, secondIsEnabled;
    const char* focus;
  } cases[] = {
      {"the first's top left pixel", 10, 10, true, true, "first"},
      {"left of it", 9, 10, true, true, "neither"},
      {"below it", 10, 31, true, true, "neither"},
      {"the right edge, where both are hit", 30, 30, true, true, "second"},
      {"right of the second", 51, 30, true, true, "neither"},
      {"where both are hit, the second being invisible", 30, 10, false, true, "first"},
      {"where both are hit, the second being disabled", 30, 10, true, false, "first"},
      {"a disabled control alone", 40, 10, true, false, "neither"},
  };
  mFirst.SetKeepOrder(true);
  for (const auto& each : cases) {
    mRoot.mEvents.clear();
    mSecond.SetVisible(each.secondIsVisible);
    mSecond.SetEnabled(each.secondIsEnabled);
    mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, each.x, each.y));
    EXPECT_EQ(FindFocus(mFirst, mSecond), each.focus) << each.name;
    EXPECT_EQ(mRoot.mEvents.size(), std::string(each.focus) == "neither" ? 1u : 0u) << each.name;
  }
}

TEST_F(ControlBasicTest, OnlyPressesComeInTheReceiversCoordinatesAndTheRestFollowsTheFocus) {
  mSecond.SetX(-5);
  Probe& inner = *Add(mSecond, 3, 4);
  mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, 3, 25));
  mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEMOTION, 180, 170));
  mRoot.HandleSdlEvent(KeyEvent(Key(SDLK_a)));
  ASSERT_EQ(inner.mEvents.size(), 3u);
  EXPECT_EQ(inner.mEvents[0].button.x, 3 + 5 - 4);
  EXPECT_EQ(inner.mEvents[0].button.y, 25 - 10 - 10);
  EXPECT_EQ(inner.mEvents[1].button.x, 180);
  EXPECT_EQ(inner.mEvents[2].type, SDL_KEYDOWN);

  EXPECT_TRUE(mRoot.RemoveSubControl(2));
  mRoot.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONUP, 3, 25));
  EXPECT_TRUE(mRoot.mEvents.empty()) << "the release goes with the receiver of its press";
  mRoot.HandleSdlEvent(KeyEvent(Key(SDLK_a)));
  EXPECT_EQ(mRoot.mEvents.size(), 1u) << "the focus goes with a removed control";
}

// 'L' and 'R' press the left and the right button on the first control, 'l' and 'r' on the second; '<' and '>' release
// them elsewhere. 'k' types into the second.
TEST_F(ControlBasicTest, AReleaseGoesToTheReceiverOfThePressAndMovesNoFocus) {
  const struct {
    const char* name;
    const char* steps;
    std::size_t firstGets, secondGets;
    const char* focus;
  } cases[] = {
      {"after the focus has moved", "Lk<", 2, 1, "second"},
      {"only once", "L<<", 2, 0, "first"},
      {"each of two buttons to its control", "Lr<>", 2, 2, "second"},
      {"after two presses to the later one", "Ll<<", 1, 2, "second"},
      {"two buttons to one control", "LR<>", 4, 0, "first"},
      {"of a button that was not pressed", "L>", 1, 0, "first"},
      {"without a press", "<", 0, 0, "neither"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    Probe root(0);
    root.SetSize(200, 200);
    Probe& first = *Add(*Add(root, 1, 10), 3, 0);
    first.SetPosition(0, 0);
    Probe& second = *Add(root, 2, 40);
    for (const char step : std::string(each.steps)) {
      const int button = std::strchr("Rr>", step) != nullptr ? SDL_BUTTON_RIGHT : SDL_BUTTON_LEFT;
      if (step == '<' || step == '>') {
        root.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONUP, 199, 199, button));
      } else if (step == 'k') {
        second.SetActive(true);
        root.HandleSdlEvent(KeyEvent(Key(SDLK_a)));
      } else {
        root.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, step < 'a' ? 15 : 45, 15, button));
      }
    }
    EXPECT_EQ(first.mEvents.size(), each.firstGets);
    EXPECT_EQ(second.mEvents.size(), each.secondGets);
    EXPECT_EQ(FindFocus(first, second), each.focus);
    EXPECT_TRUE(root.mEvents.empty());
  }
}

TEST_F(ControlBasicTest, AClickBringsToTheFrontUnlessTheOrderIsKept) {
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

TEST_F(ControlBasicTest, OverriddenSubControlsDrawOntoTheParentsSurface) {
  mRoot.SetOverrideBaseSurface(true);
  Add(mRoot, 4, 50);
  mRoot.SetSize(100, 100);
  for (const std::uint32_t id : {1u, 4u}) EXPECT_EQ(mRoot.GetSubControl(id)->GetParentSurface(), mVideo);
  EXPECT_EQ(Add(mRoot, 5, 70)->GetParentSurface(), mVideo);
}

}  // namespace
}  // namespace tolva::test
