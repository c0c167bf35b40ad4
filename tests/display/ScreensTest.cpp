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
      EXPECT_EQ(uncovered, 0) << size << ", " << entries.size() << " archive entries";
    }
  }
}

TEST_P(ScreensTest, TheWheelIsNoButton) {
  Start();
  GoToScreen();
  if (GetParam() == Which::Chat) ClickOn({ScreenChat::kButtonBar, ScreenChat::kOptionsButton});
  // Its class, because a new screen can get the address of the old one.
  const auto getKind = [&] {
    const Screen& screen = *mDisplay->GetScreen();
    return std::type_index(typeid(screen));
  };
  const std::type_index before = getKind();
  for (int place = 0; place < 80 * 60; ++place) {
    for (const int button : {SDL_BUTTON_WHEELUP, SDL_BUTTON_WHEELDOWN}) {
      for (const Uint8 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
        const SDL_Event event = MouseEvent(type, place % 80 * 10 + 5, place / 80 * 10 + 5, button);
        mDisplay->GetScreen()->HandleSdlEvent(event);
      }
    }
  }
  mDisplay->RunPass();
  EXPECT_TRUE(getKind() == before);
  EXPECT_TRUE(Sent().empty());
  EXPECT_FALSE(std::filesystem::exists("client.ini"));
}

// A peer can write any code into a plain packet.
TEST_P(ScreensTest, FalseClaimsChangeNothing) {
  Start();
  GoToScreen();
  const Screen* before = mDisplay->GetScreen();
  for (PacketCode code = 0; code < 1100; ++code) {
    Packet packet;
    packet.mEnmCode = code;
    Put(packet);
  }
  // Not with Run, which a believed quit would end.
  while (mMailbox.GetCount() > 0) mDisplay->HandleMyMailbox();
  EXPECT_EQ(mDisplay->GetScreen(), before);
  EXPECT_TRUE(Sent().empty());
}

std::string NameOf(const ::testing::TestParamInfo<Which>& tested) {
  static constexpr const char* kNames[] = {"Start", "Login", "Chat"};
  return kNames[static_cast<std::size_t>(tested.param)];
}
INSTANTIATE_TEST_SUITE_P(All, ScreensTest, ::testing::Values(Which::Start, Which::Login, Which::Chat), NameOf);

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
