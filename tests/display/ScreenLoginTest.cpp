#include "controls/ControlTextBox.h"
#include "display/DisplayFixture.h"
#include "display/ScreenLogin.h"

namespace tolva::test {
namespace {

class ScreenLoginTest : public DisplayFixture {
 protected:
  using Id = ScreenLogin::ComponentId;

  void SetUp() override {
    Start();
    Press(SDLK_SPACE);
  }
  std::string NameText() { return TextOf({Id::kLoginWindow, Id::kNameBox}); }
  std::string PasswordText() { return TextOf({Id::kLoginWindow, Id::kPasswordBox}); }
  std::string Status() { return TextOf({Id::kStatusLabel}); }
};

TEST_F(ScreenLoginTest, NameAndPasswordReachTheServerAsTyped) {
  Type("100%s");
  Press(SDLK_TAB);
  Type("a b%n");
  Press(SDLK_RETURN);
  EXPECT_EQ(Status(), "Connecting");
  const std::unique_ptr<Packet> packet(mController.Get());
  const auto* request = PacketCast<PacketLoginRequest>(packet.get());
  ASSERT_NE(request, nullptr);
  EXPECT_STREQ(request->mStrLogin, "100%s");
  EXPECT_STREQ(request->mStrPass, "a b%n");
}

TEST_F(ScreenLoginTest, EnterAndTabWalkThroughTheBoxes) {
  Press(SDLK_RETURN);
  Type("p");
  Press(SDLK_TAB);
  Type("n");
  EXPECT_EQ(PasswordText(), "p");
  EXPECT_EQ(NameText(), "n");
  EXPECT_TRUE(Sent().empty());
}

TEST_F(ScreenLoginTest, SixteenCharactersFitAndThePasswordIsMasked) {
  Type("12345678901234567");
  EXPECT_EQ(NameText(), "1234567890123456");
  Press(SDLK_TAB);
  Type("secret");
  EXPECT_EQ(Find<ControlTextBox>({Id::kLoginWindow, Id::kPasswordBox}).ControlLabel::GetText(), std::string("******"));
}

TEST_F(ScreenLoginTest, EmptyBoxesAreSentTooAndEscapeQuitsFromAnywhere) {
  Press(SDLK_TAB);
  Press(SDLK_RETURN);
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketLoginRequest::kCode});
  Press(SDLK_ESCAPE);
  Click(5, 5);
  Press(SDLK_ESCAPE);
  EXPECT_EQ(Sent(), (std::vector<PacketCode>{PacketQuit::kCode, PacketQuit::kCode}));
}

TEST_F(ScreenLoginTest, AClickBesideTheBoxesTakesTheFocusUntilABoxIsClicked) {
  Click(5, 5);
  Type("lost");
  EXPECT_EQ(NameText(), "");
  Click(800 / 2 - 125 + 105, 600 / 2 - 75 + 95);
  Type("found");
  EXPECT_EQ(PasswordText(), "found");
}

TEST_F(ScreenLoginTest, FailuresAreShownAndLeadBackToTheName) {
  Press(SDLK_TAB);
  Recieve<PacketInternConnectionLost>();
  EXPECT_EQ(Status(), "Could not establish connection");
  Type("a");
  Press(SDLK_TAB);
  auto* deny = new PacketLoginDeny;
  CopyText(deny->mStrReason, "100% %s %n wrong");
  Deliver(deny);
  EXPECT_EQ(Status(), "Login denied: 100% %s %n wrong");
  Type("b");
  EXPECT_EQ(NameText(), "ab");
}

TEST_F(ScreenLoginTest, OfALongReasonTheBeginningIsVisible) {
  auto* deny = new PacketLoginDeny;
  CopyText(deny->mStrReason, std::string(300, 'W').c_str());
  Deliver(deny);
  EXPECT_EQ(Status(), "Login denied: " + std::string(255, 'W'));
  EXPECT_GE(Find<ControlLabel>({Id::kStatusLabel}).GetTextX(), 0);
  Recieve<PacketInternConnectionLost>();
  EXPECT_GT(Find<ControlLabel>({Id::kStatusLabel}).GetTextX(), 200) << "short texts stay centred";
}

}  // namespace
}  // namespace tolva::test
