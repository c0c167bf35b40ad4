#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "display/ScreenLogin.h"
#include "display/ScreenStart.h"

namespace tolva::test {
namespace {

enum class Which { Start, Login, Chat };

// What holds for every screen.
class ScreensTest : public DisplayFixture, public ::testing::WithParamInterface<Which> {
 protected:
  void GoToScreen() {
    if (GetParam() == Which::Login) Press(SDLK_SPACE);
    if (GetParam() == Which::Chat) Recieve<PacketEnterChatAccept>();
    mDisplay->RunPass();
    Sent();
  }
  // How many pixels a frame leaves as they were before.
  int CountUncovered() {
    SDL_Surface* video = SDL_GetVideoSurface();
    SDL_FillRect(video, nullptr, SDL_MapRGB(video->format, 0, 255, 255));
    mDisplay->RunPass();
    int uncovered = 0;
    for (int y = 0; y < video->h; ++y) {
      for (int x = 0; x < video->w; ++x) uncovered += PixelAt(x, y) == Rgb{0, 255, 255};
    }
    return uncovered;
  }
};

TEST_P(ScreensTest, EveryPixelIsCoveredAtEverySizeWithAndWithoutPictures) {
  for (const auto& [width, height] : {std::pair{800, 600}, {1024, 768}, {1280, 1024}}) {
    StartWithSize(width, height);
    GoToScreen();
    EXPECT_EQ(CountUncovered(), 0) << width;
  }
  Start({});
  ASSERT_FALSE(mDisplay->HasFailed());
  GoToScreen();
  EXPECT_EQ(CountUncovered(), 0);
}

// The code is all that a stranger chooses freely; nobody may take it for the class.
TEST_P(ScreensTest, FalseClaimsChangeNothing) {
  Start();
  GoToScreen();
  const Screen* before = mDisplay->GetScreen();
  for (PacketCode code = 0; code < 1100; ++code) {
    auto* packet = new Packet;
    packet->mEnmCode = code;
    ASSERT_TRUE(mMailbox.Put(packet));
  }
  // Run would end with the first quit that is believed.
  while (mMailbox.GetCount() > 0) mDisplay->HandleMyMailbox();
  EXPECT_EQ(mDisplay->GetScreen(), before);
  EXPECT_TRUE(Sent().empty());
  Recieve<PacketInternCentralMailbox>(nullptr);
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
  mDisplay->RunPass();
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode}) << "the controller's mailbox is lost";
}

std::string NameOf(const ::testing::TestParamInfo<Which>& test) {
  constexpr const char* kNames[] = {"Start", "Login", "Chat"};
  return kNames[static_cast<int>(test.param)];
}

INSTANTIATE_TEST_SUITE_P(All, ScreensTest, ::testing::Values(Which::Start, Which::Login, Which::Chat), NameOf);

class ScreenStartTest : public DisplayFixture {
 protected:
  template <typename T>
  bool Shows() {
    return dynamic_cast<T*>(mDisplay->GetScreen()) != nullptr;
  }
};

TEST_F(ScreenStartTest, TheVersionStandsBelowThePicture) {
  Start();
  EXPECT_EQ(TextOf({ScreenStart::kVersionLabel}), "Press any key - Version 0.6.23");
  EXPECT_EQ(Find<ControlLabel>({ScreenStart::kVersionLabel}).GetY(), 350);
  Start({});
  EXPECT_EQ(Find<ControlLabel>({ScreenStart::kVersionLabel}).GetY(), 300);
}

TEST_F(ScreenStartTest, AnyKeyOrClickLeadsToTheLogin) {
  Start();
  Press(SDLK_F1);
  EXPECT_TRUE(Shows<ScreenLogin>());
  Start();
  Click(400, 300);
  EXPECT_TRUE(Shows<ScreenLogin>());
}

TEST_F(ScreenStartTest, EscapeQuitsAndOtherEventsDoNothing) {
  Start();
  Press(SDLK_ESCAPE);
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode});
  PushMouse(SDL_MOUSEBUTTONUP, 1, 1);
  PushMouse(SDL_MOUSEMOTION, 1, 1);
  mDisplay->RunPass();
  EXPECT_TRUE(Shows<ScreenStart>());
}

// A second login screen would throw away what was typed into the first.
TEST_F(ScreenStartTest, ManyKeysAtOnceAskForOneLogin) {
  Start();
  Type("impatient");
  const Screen* login = mDisplay->GetScreen();
  Type("x");
  EXPECT_EQ(mDisplay->GetScreen(), login);
  EXPECT_EQ(TextOf({ScreenLogin::kLoginWindow, ScreenLogin::kNameBox}), "x");
}

TEST_F(ScreenStartTest, AKeyThatFindsTheEventQueueFullIsNotTheLast) {
  Start();
  while (PushDisplayRequest(99)) continue;
  SDL_Event key{};
  key.type = SDL_KEYDOWN;
  mDisplay->GetScreen()->HandleSdlEvent(key);
  mDisplay->RunPass();
  EXPECT_TRUE(Shows<ScreenStart>());
  Press(SDLK_SPACE);
  EXPECT_TRUE(Shows<ScreenLogin>());
}

}  // namespace
}  // namespace tolva::test
