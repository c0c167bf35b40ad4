#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "foundation/Ticks.h"

namespace tolva::test {
namespace {

using Id = ScreenChat::ComponentId;

class LobbyLookTest : public DisplayFixture {
 protected:
  ~LobbyLookTest() override { SetTickSource(nullptr); }
  // Nothing blinks and no frames are counted.
  void SetUp() override {
    SetTickSource([] { return 1000u; });
    Enter();
  }
  void Enter() {
    Start();
    Deliver(PacketEnterChatAccept());
  }
};

TEST_F(LobbyLookTest, ShowsWhoIsThereWhatIsSaidAndTheOptions) {
  for (const char* name : {kServerSpeaker, "Anna"}) {
    Deliver(PacketChatMsg(name,
                          "The ferry leaves from the old landing stage at noon, and again when the lamps are lit along "
                          "the water."));
  }
  PacketChatUsers users;
  for (const char* name : {"A", "B", "C", "D", "E", "F", "G", "H", "I"}) users.Add(name);
  Deliver(users);
  Deliver(PacketInternPong(42));
  // The real one changes with every release.
  Find<ControlLabel>({Id::kVersionsWindow, Id::kClientVersionLabel}).SetText("1.2.3");
  Type("say it");
  EXPECT_TRUE(Matches("lobby", {0, 0, 800, 600}));
  ClickOn({Id::kButtonBar, Id::kOptionsButton});
  Deliver(PacketInternConnectionLost());
  EXPECT_TRUE(Matches("lobby-options", {250, 195, 300, 210}));
  EXPECT_TRUE(Matches("lobby-buttons", {550, 40, 250, 60})) << "the way into the game is gone";
}

TEST_F(LobbyLookTest, EverythingHasItsPlaceAtEverySize) {
  const struct {
    std::initializer_list<std::uint32_t> way;
    Rect medium, large;
  } places[] = {
      {{Id::kServerMessageWindow}, {0, 0, 1024, 40}, {0, 0, 1280, 40}},
      {{Id::kLeftPanel}, {0, 40, 362, 60}, {0, 40, 490, 60}},
      {{Id::kIsland}, {362, 40, 300, 60}, {490, 40, 300, 60}},
      {{Id::kButtonBar}, {662, 40, 362, 60}, {790, 40, 490, 60}},
      {{Id::kButtonBar, Id::kEnterGameButton}, {188, 7, 80, 20}, {316, 7, 80, 20}},
      {{Id::kChatWindow}, {0, 100, 874, 623}, {0, 100, 1130, 879}},
      {{Id::kChatWindow, Id::kChatBox}, {0, 18, 874, 605}, {0, 18, 1130, 861}},
      {{Id::kVersionsWindow}, {874, 100, 150, 75}, {1130, 100, 150, 75}},
      {{Id::kStatusWindow}, {874, 175, 150, 95}, {1130, 175, 150, 95}},
      {{Id::kChatUsersWindow}, {874, 270, 150, 226}, {1130, 270, 150, 354}},
      {{Id::kGameUsersWindow}, {874, 496, 150, 227}, {1130, 624, 150, 355}},
      {{Id::kInputWindow}, {0, 723, 1024, 45}, {0, 979, 1280, 45}},
      {{Id::kInputWindow, Id::kChatInputBox}, {5, 20, 1014, 23}, {5, 20, 1270, 23}},
      {{Id::kOptionsWindow}, {362, 279, 300, 210}, {490, 407, 300, 210}},
  };
  for (const char* size : {"Width=1024\nHeight=768", "Width=1280\nHeight=1024"}) {
    WriteFile("client.ini", std::string("[DISPLAY]\n") + size);
    Enter();
    for (const auto& each : places) {
      const Rect& wanted = SDL_GetVideoSurface()->w == 1024 ? each.medium : each.large;
      const auto& control = Find<ControlBasic>(each.way);
      EXPECT_EQ((std::vector<int>{control.GetX(), control.GetY(), control.GetWidth(), control.GetHeight()}),
                (std::vector<int>{wanted.x, wanted.y, wanted.width, wanted.height}))
          << size << ", row " << &each - places;
    }
  }
}

}  // namespace
}  // namespace tolva::test
