#include <typeindex>

#include "controls/ControlTextBox.h"
#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "display/ScreenLogin.h"

namespace tolva::test {
namespace {

enum class Which { Start, Login, Chat };

class ScreensTest : public DisplayFixture, public ::testing::WithParamInterface<Which> {
 protected:
  void GoToScreen() {
    if (GetParam() == Which::Login) Type(" ");
    if (GetParam() == Which::Chat) Deliver(PacketEnterChatAccept());
    Sent();
  }
};

TEST_P(ScreensTest, EveryPixelIsCoveredAtEverySizeWithAndWithoutPictures) {
  for (const char* size : {"Width=800\nHeight=600", "Width=1024\nHeight=768", "Width=1280\nHeight=1024"}) {
    for (const Entries& entries : {AllPictures(), OnlyTheFont()}) {
      WriteFile("client.ini", std::string("[DISPLAY]\n") + size);
      Start(entries);
      GoToScreen();
      SDL_Surface* video = SDL_GetVideoSurface();
      SDL_FillRect(video, nullptr, SDL_MapRGB(video->format, 0, 255, 255));
      mDisplay->RunPass();
      int uncovered = 0;
      for (int pixel = 0; pixel < video->w * video->h; ++pixel) {
        uncovered += PixelAt(pixel % video->w, pixel / video->w) == Rgb{0, 255, 255};
      }
      EXPECT_EQ(uncovered, 0) << size;
    }
  }
}

TEST_P(ScreensTest, TheWheelIsNoButton) {
  Start();
  GoToScreen();
  if (GetParam() == Which::Chat) ClickOn({ScreenChat::kButtonBar, ScreenChat::kOptionsButton});
  // Not by address: a new screen may get the old one's.
  const auto getKind = [&] {
    const Screen& screen = *mDisplay->GetScreen();
    return std::type_index(typeid(screen));
  };
  const std::type_index before = getKind();
  for (int place = 0; place < 80 * 60; ++place) {
    SDL_Event event{SDL_MOUSEBUTTONDOWN};
    event.button.x = static_cast<Uint16>(place % 80 * 10 + 5);
    event.button.y = static_cast<Uint16>(place / 80 * 10 + 5);
    for (const Uint8 button : {SDL_BUTTON_WHEELUP, SDL_BUTTON_WHEELDOWN}) {
      event.button.button = button;
      for (const Uint8 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
        event.type = type;
        mDisplay->GetScreen()->HandleSdlEvent(event);
      }
    }
  }
  mDisplay->RunPass();
  EXPECT_TRUE(getKind() == before);
  EXPECT_TRUE(Sent().empty());
  EXPECT_FALSE(std::filesystem::exists("client.ini"));
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
}

INSTANTIATE_TEST_SUITE_P(StartLoginChat, ScreensTest, ::testing::Values(Which::Start, Which::Login, Which::Chat));

class ScreenLoginTest : public DisplayFixture {
 protected:
  using Id = ScreenLogin::ComponentId;

  void SetUp() override {
    Start();
    Type(" ");
  }
  std::string Status() { return TextOf({Id::kStatusLabel}); }
};

TEST_F(ScreenLoginTest, NameAndPasswordReachTheServerAsTyped) {
  Type("\ra b\t100%s5678901234567");
  Click(5, 5);
  Type("lost");
  ClickOn({Id::kLoginWindow, Id::kPasswordBox});
  Type("%n");
  EXPECT_EQ(Find<ControlTextBox>({Id::kLoginWindow, Id::kPasswordBox}).ControlLabel::GetText(), std::string("*****"));
  EXPECT_TRUE(Sent().empty());
  Type("\r");
  EXPECT_EQ(Status(), "Connecting");
  const auto& request = NextSent<PacketLoginRequest>();
  EXPECT_STREQ(request.mStrLogin, "100%s56789012345") << "sixteen characters fit";
  EXPECT_STREQ(request.mStrPass, "a b%n");
}

TEST_F(ScreenLoginTest, FailuresAreShownFromTheirBeginningAndLeadBackToTheName) {
  Type("\t");
  Deliver(PacketInternConnectionLost());
  EXPECT_EQ(Status(), "Could not establish connection");
  Type("a\t");
  for (const std::string& reason : {std::string("100% %s %n wrong"), std::string(255, 'W')}) {
    Deliver(PacketLoginDeny(reason.c_str()));
    EXPECT_EQ(Status(), "Login denied: " + reason);
    EXPECT_GE(Find<ControlLabel>({Id::kStatusLabel}).GetTextX(), 0);
  }
  Type("b");
  EXPECT_EQ(TextOf({Id::kLoginWindow, Id::kNameBox}), "ab");
}

}  // namespace
}  // namespace tolva::test
