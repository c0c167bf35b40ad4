#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "display/ScreenLogin.h"
#include "display/ScreenStart.h"

namespace tolva::test {
namespace {

using DisplayTest = DisplayFixture;

struct IniCase {
  const char* content;
  int width;
  int height;
};

TEST_F(DisplayTest, OnlyKnownModesAreTakenFromTheSettings) {
  const IniCase cases[] = {
      {"", 800, 600},
      {"[DISPLAY]\nWidth=1024\nHeight=768\n", 1024, 768},
      {"[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=2\n", 1280, 1024},
      {"[DISPLAY]\nWidth=1024\nHeight=600\n", 800, 600},
      {"[DISPLAY]\nWidth=1024\n", 800, 600},
      {"[DISPLAY]\nWidth=-1\nHeight=99999999999999999999\n", 800, 600},
      {"[DISPLAY]\nWidth=wide\nHeight=high\nFullscreen=yes\n", 800, 600},
      {"Width=1024\nHeight=768\n[NETWORK]\nWidth=1024\nHeight=768\n", 800, 600},
  };
  for (const IniCase& each : cases) {
    WriteFile("client.ini", each.content);
    Start();
    EXPECT_EQ(SDL_GetVideoSurface()->w, each.width) << each.content;
    EXPECT_EQ(SDL_GetVideoSurface()->h, each.height) << each.content;
    EXPECT_EQ(SDL_GetVideoSurface()->flags & SDL_FULLSCREEN, 0u) << each.content;
  }
}

TEST_F(DisplayTest, ANewSizeIsWrittenForTheNextStartOnly) {
  WriteFile("client.ini", "[NETWORK]\nHost=example.org\n");
  Start();
  mDisplay->SetDisplaySize({1024, 768, true});
  EXPECT_EQ(ReadFile("client.ini"), "[NETWORK]\nHost=example.org\n[DISPLAY]\nWidth=1024\nHeight=768\nFullscreen=1\n");
  EXPECT_EQ(SDL_GetVideoSurface()->w, 800);
}

TEST_F(DisplayTest, TheServersConsentOpensTheChatAndAsksForItsVersion) {
  Start();
  Recieve<PacketEnterChatAccept>();
  EXPECT_NE(dynamic_cast<ScreenChat*>(mDisplay->GetScreen()), nullptr);
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketServerInfo::kCode});
}

TEST_F(DisplayTest, ClosingTheWindowOnlyAsksForTheEnd) {
  Start();
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
  mDisplay->RunPass();
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode});
  ASSERT_TRUE(mMailbox.Put(new PacketQuit));
  mDisplay->Run();
  EXPECT_FALSE(mDisplay->HasFailed());
}

TEST_F(DisplayTest, ThePointerFollowsTheMouse) {
  Pictures pictures = AllPictures();
  pictures[kPicturePointer] = {4, 4, {255, 255, 0}};
  Start(pictures);
  SDL_Event event{};
  event.type = SDL_MOUSEMOTION;
  event.motion.x = 20;
  event.motion.y = 30;
  SDL_PushEvent(&event);
  mDisplay->RunPass();
  EXPECT_EQ(PixelAt(20, 30), (Rgb{255, 255, 0}));
  EXPECT_EQ(PixelAt(19, 30), (Rgb{0, 0, 0}));
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
}

TEST_F(DisplayTest, WithoutAPointerPictureTheSystemsOwnIsShown) {
  Start();
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

TEST_F(DisplayTest, UnknownRequestsAndRequestsWithoutDataChangeNothing) {
  Start();
  const Screen* before = mDisplay->GetScreen();
  for (const int code : {0, 2, 3, -1, 0x7FFFFFFF}) PushDisplayRequest(code);
  mDisplay->RunPass();
  EXPECT_EQ(mDisplay->GetScreen(), before);
  EXPECT_FALSE(std::filesystem::exists("client.ini"));
}

// What makes the set-up fail, and what the player reads about it.
struct Failure {
  const char* name;
  void (*prepare)();
  const char* hint;
};

// Without it the test's name would show the addresses of these texts.
void PrintTo(const Failure& failure, std::ostream* out) { *out << failure.name; }

class FailingDisplayTest : public DisplayFixture, public ::testing::WithParamInterface<Failure> {};

TEST_P(FailingDisplayTest, SaysWhyAsksToQuitAndServesOnlyItsMailbox) {
  const std::string driver = getenv("SDL_VIDEODRIVER");
  WriteGraphics(AllPictures(), ReadFont());
  GetParam().prepare();
  ::testing::internal::CaptureStderr();
  mDisplay = std::make_unique<SteppedDisplay>(&mMailbox);
  const std::string said = ::testing::internal::GetCapturedStderr();
  setenv("SDL_VIDEODRIVER", driver.c_str(), 1);

  EXPECT_TRUE(mDisplay->HasFailed());
  EXPECT_NE(said.find(GetParam().hint), std::string::npos) << said;
  EXPECT_NE(said.find("log.clf"), std::string::npos) << said;
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;

  for (Packet* packet :
       std::initializer_list<Packet*>{new PacketChatMsg, new PacketInternCentralMailbox(&mController),
                                      new PacketEnterChatAccept, new PacketChatUsers, new PacketQuit}) {
    ASSERT_TRUE(mMailbox.Put(packet));
  }
  mDisplay->Run();
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode});
  EXPECT_EQ(mMailbox.GetCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Causes, FailingDisplayTest,
    ::testing::Values(Failure{"NoVideo", [] { setenv("SDL_VIDEODRIVER", "nosuchdriver", 1); }, "video system"},
                      Failure{"NoArchive", [] { std::filesystem::remove("Graphics.cci"); }, "Graphics.cci"},
                      Failure{"NoFontInArchive", [] { WriteGraphics(AllPictures(), ""); }, "font"},
                      Failure{"DamagedFont", [] { WriteGraphics(AllPictures(), "this is no font"); }, "font"},
                      Failure{"NoPlaceForTheFont", [] { std::filesystem::create_directories("Data.tmp/taken"); },
                              "Data.tmp"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace tolva::test
