#include <algorithm>
#include <cstdlib>

#include "display/DisplayFixture.h"

namespace tolva::test {
namespace {

using DisplayTest = DisplayFixture;

TEST_F(DisplayTest, OnlyKnownModesAreTakenFromTheSettings) {
  const struct {
    const char* content;
    int width, height;
  } cases[] = {
      {"", 800, 600},
      {"[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=2\n", 1280, 1024},
      {"[DISPLAY]\nWidth=1024\nHeight=600\n", 800, 600},
      {"[DISPLAY]\nWidth=-1\nHeight=99999999999999999999\n", 800, 600},
      {"[DISPLAY]\nWidth=wide\nHeight=high\nFullscreen=yes\n", 800, 600},
      {"Width=1024\nHeight=768\n[NETWORK]\nWidth=1024\nHeight=768\n", 800, 600},
  };
  for (const auto& each : cases) {
    WriteFile("client.ini", each.content);
    Start();
    EXPECT_EQ(SDL_GetVideoSurface()->w, each.width) << each.content;
    EXPECT_EQ(SDL_GetVideoSurface()->h, each.height) << each.content;
    EXPECT_EQ(SDL_GetVideoSurface()->flags & SDL_FULLSCREEN, 0u) << each.content;
  }
}

TEST_F(DisplayTest, ThePointerFollowsTheMouseAndIsTheSystemsOwnWithoutAPicture) {
  Start();
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
  Entries entries = AllPictures();
  entries[kPicturePointer] = MakePicture(255, 255, 0);
  Start(entries);
  PushMouse(SDL_MOUSEMOTION, 20, 30);
  mDisplay->RunPass();
  EXPECT_EQ(PixelAt(20, 30), (Rgb{255, 255, 0}));
  EXPECT_EQ(PixelAt(19, 30), (Rgb{0, 0, 0}));
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
}

TEST_F(DisplayTest, WhatFailsSaysWhyAsksToQuitAndServesOnlyItsMailbox) {
  const struct {
    void (*prepare)();
    const char* hint;
  } failures[] = {{[] { setenv("SDL_VIDEODRIVER", "nosuchdriver", 1); }, "video system"},
                  {[] { std::filesystem::remove("Graphics.cci"); }, "Graphics.cci"},
                  {[] { WriteGraphics({}); }, "font"},
                  {[] {
                     WriteGraphics({{1, "this is no font"}});
                   },
                   "font"},
                  {[] { std::filesystem::remove("Data.tmp") && std::filesystem::create_directories("Data.tmp/taken"); },
                   "Data.tmp"}};
  for (const auto& failure : failures) {
    SCOPED_TRACE(failure.hint);
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    WriteGraphics(OnlyTheFont());
    failure.prepare();
    ::testing::internal::CaptureStderr();
    mDisplay = std::make_unique<SteppedDisplay>(&mMailbox);
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find(failure.hint), std::string::npos) << said;
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;

    for (Packet* packet : std::initializer_list<Packet*>{new PacketInternCentralMailbox(&mController),
                                                         new PacketEnterChatAccept, new PacketQuit}) {
      EXPECT_TRUE(mMailbox.Put(packet));
    }
    mDisplay->Run();
    EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode});
  }
}

}  // namespace
}  // namespace tolva::test
