#include <algorithm>
#include <cstdlib>

#include "display/DisplayFixture.h"

namespace tolva::test {
namespace {

using DisplayTest = DisplayFixture;

TEST_F(DisplayTest, OnlyKnownModesAreTakenFromTheSettings) {
  const std::pair<const char*, int> cases[] = {
      {"", 800},
      {"[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=2\n", 1280},
      {"[DISPLAY]\nWidth=1024\nHeight=600\n", 800},
      {"[DISPLAY]\nWidth=-1\nHeight=99999999999999999999\n", 800},
  };
  for (const auto& [content, width] : cases) {
    WriteFile("client.ini", content);
    Start();
    EXPECT_EQ(SDL_GetVideoSurface()->w, width) << content;
    EXPECT_EQ(SDL_GetVideoSurface()->flags & SDL_FULLSCREEN, 0u) << content;
  }
}

TEST_F(DisplayTest, WhatFailsSaysWhyAsksToQuitAndServesOnlyItsMailbox) {
  const struct {
    void (*prepare)();
    const char* hint;
  } failures[] = {{[] { setenv("SDL_VIDEODRIVER", "nosuchdriver", 1); }, "video system"},
                  {[] { std::filesystem::remove("Graphics.cci"); }, "Graphics.cci"},
                  {[] { WriteGraphics({}); }, "font"}};
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
    EXPECT_EQ(Sent(), Codes{PacketQuit::kCode});
  }
}

TEST_F(DisplayTest, WhoHasAskedToQuitSeesNoMoreOfTheMail) {
  Start();
  const Screen* before = mDisplay->GetScreen();
  SDL_Event close{SDL_QUIT};
  EXPECT_EQ(SDL_PushEvent(&close), 0);
  mDisplay->RunPass();
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 300; ++i) EXPECT_TRUE(mMailbox.Put(new PacketEnterChatAccept));
    mDisplay->RunPass();
    EXPECT_EQ(mMailbox.GetCount(), 0u);
    EXPECT_EQ(mDisplay->GetScreen(), before);
  }
  for (int i = 0; i < 300; ++i) EXPECT_TRUE(mMailbox.Put(new PacketEnterChatAccept));
  EXPECT_TRUE(mMailbox.Put(new PacketQuit));
  mDisplay->Run();
  EXPECT_EQ(Sent(), Codes{PacketQuit::kCode}) << "and asks once";
}

}  // namespace
}  // namespace tolva::test
