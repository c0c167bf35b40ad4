#include <algorithm>
#include <cstdlib>

#include "display/DisplayFixture.h"

namespace tolva::test {
namespace {

using DisplayTest = DisplayFixture;

TEST_F(DisplayTest, OnlyKnownModesAreTakenFromTheSettings) {
  const struct {
    const char* what;
    const char* settings;
    int width;
  } cases[] = {
      {"no settings", "", 800},
      {"a known size", "[DISPLAY]\nWidth=1280\nHeight=1024\n", 1280},
      {"the height of another size", "[DISPLAY]\nWidth=1024\nHeight=600\n", 800},
      {"numbers out of range", "[DISPLAY]\nWidth=-1\nHeight=99999999999999999999\n", 800},
      {"full screen neither 0 nor 1", "[DISPLAY]\nFullscreen=2\n", 800},
  };
  for (const auto& each : cases) {
    WriteFile("client.ini", each.settings);
    Start();
    EXPECT_EQ(SDL_GetVideoSurface()->w, each.width) << each.what;
    EXPECT_EQ(SDL_GetVideoSurface()->flags & SDL_FULLSCREEN, 0u) << each.what;
  }
}

TEST_F(DisplayTest, AFailedStartSaysWhyAndAsksToQuit) {
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

    Put(PacketInternCentralMailbox(&mController));
    Put(PacketEnterChatAccept());
    Put(PacketQuit());
    mDisplay->Run();
    EXPECT_EQ(Sent(), Codes{PacketQuit::kCode});
  }
}

TEST_F(DisplayTest, AfterThePlayerAsksToQuitMailIsDroppedUntilTheAnswer) {
  Start();
  const Screen* before = mDisplay->GetScreen();
  Push({SDL_QUIT});
  mDisplay->RunPass();
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 300; ++i) Put(PacketEnterChatAccept());
    mDisplay->RunPass();
    EXPECT_EQ(mMailbox.GetCount(), 0u);
    EXPECT_EQ(mDisplay->GetScreen(), before);
  }
  for (int i = 0; i < 300; ++i) Put(PacketEnterChatAccept());
  Put(PacketQuit());
  mDisplay->Run();
  EXPECT_EQ(Sent(), Codes{PacketQuit::kCode}) << "it asks once";
}

}  // namespace
}  // namespace tolva::test
