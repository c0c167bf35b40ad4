#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "protocol/MusicPackets.h"

namespace tolva::test {
namespace {

using Id = ScreenChat::ComponentId;

class ScreenChatTest : public DisplayFixture {
 protected:
  void SetUp() override { EnterChat(); }
  void EnterChat() {
    Start();
    Deliver(PacketEnterChatAccept());
    EXPECT_EQ(Sent(), Codes{PacketServerInfo::kCode});
  }
  void OpenOptions() { ClickOn({Id::kButtonBar, Id::kOptionsButton}); }
  void ClickToggle(Id toggle) { ClickOn({Id::kOptionsWindow, toggle}); }
  bool IsOn(Id toggle) { return Find<ControlButton>({Id::kOptionsWindow, toggle}).IsPressed(); }
  ControlChatBox& ChatBox() { return Find<ControlChatBox>({Id::kChatWindow, Id::kChatBox}); }
};

TEST_F(ScreenChatTest, WhatIsTypedGoesToTheInputLineWhateverWasClicked) {
  Type("\rnever mind\x1b\r");
  EXPECT_TRUE(Sent().empty());
  OpenOptions();
  ClickOn({Id::kChatUsersWindow, Id::kChatUsersList});
  Type("hi 100%");
  Type("\r");
  EXPECT_STREQ(NextSent<PacketChatMsg>().mStrMsg, "hi 100%");
  EXPECT_EQ(TextOf({Id::kInputWindow, Id::kChatInputBox}), "");
}

TEST_F(ScreenChatTest, OnlyTheServersLinesBearItsName) {
  Deliver(PacketChatMsg(kServerSpeaker, "welcome"));
  Deliver(PacketChatMsg("***", "a player"));
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1000)).GetText(), "[Server]");
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1002)).GetText(), "[***]");
}

TEST_F(ScreenChatTest, HostileTextsAndCountsDoNoHarm) {
  std::string all;
  for (int character = 1; character < 256; ++character) all += static_cast<char>(character);
  for (const std::string& text : {all, std::string("%s%n%999999d"), std::string(2000, 'W'), std::string(2000, '\x01'),
                                  std::string("\x80"), std::string("\t\n\r"), std::string()}) {
    Deliver(PacketChatMsg(text.c_str(), text.c_str()));
    PacketChatUsers users;
    users.Add(text.c_str());
    users.mUintCount = 65535;
    Deliver(users);
    EXPECT_EQ(Find<ControlListBox>({Id::kChatUsersWindow, Id::kChatUsersList}).GetEntryCount(), int{kUserListCapacity});
  }
  Deliver(PacketChatMsg("Anna", "still here"));
  EXPECT_EQ(ReadFile("log.clf").find("At tick"), std::string::npos) << "an error was reported";
  EXPECT_GT(ChatBox().GetEntryCount(), 7);
}

TEST_F(ScreenChatTest, ALostConnectionIsShownAndClosesTheWayIntoTheGame) {
  Deliver(PacketInternPong(4294967295u));
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_EQ(Sent(), Codes{PacketEnterGameRequest::kCode});
  Deliver(PacketEnterGameAccept());
  Deliver(PacketInternConnectionLost());
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kConnectionLabel}), "Disconnected");
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kPingValueLabel}), "0");
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_TRUE(Sent().empty());
}

TEST_F(ScreenChatTest, TheIslandDarkensFromPictureToPicture) {
  EXPECT_EQ(PixelAt(400, 70), kBlack) << "dark until the server says otherwise";
  const std::pair<Uint8, Rgb> cases[] = {
      {0, {255, 0, 0}}, {50, {128, 127, 0}}, {150, {0, 128, 127}}, {200, {0, 0, 255}}, {201, kBlack}};
  for (const auto& [darkness, expected] : cases) {
    Deliver(PacketDarkness(darkness));
    const Rgb color = PixelAt(400, 70);
    // 565 keeps 5 or 6 bits of a color.
    EXPECT_NEAR(color.r, expected.r, 12) << darkness;
    EXPECT_NEAR(color.g, expected.g, 12) << darkness;
    EXPECT_NEAR(color.b, expected.b, 12) << darkness;
  }
}

TEST_F(ScreenChatTest, OptionsAreKeptForTheNextStart) {
  WriteFile("client.ini", "[NETWORK]\nHost=example.org\n");
  EnterChat();
  OpenOptions();
  for (const Id toggle : {Id::kMediumToggle, Id::kLargeToggle, Id::kFullScreenToggle}) ClickToggle(toggle);
  const std::string chosen = "[NETWORK]\nHost=example.org\n[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=1\n";
  EXPECT_EQ(ReadFile("client.ini"), chosen);
  const auto expectChosen = [&](const char* when) {
    for (const Id toggle : {Id::kSmallToggle, Id::kMediumToggle}) EXPECT_FALSE(IsOn(toggle)) << when;
    for (const Id toggle : {Id::kLargeToggle, Id::kFullScreenToggle, Id::kMusicToggle})
      EXPECT_TRUE(IsOn(toggle)) << when;
  };
  Deliver(PacketEnterChatAccept());
  expectChosen("in a new lobby");
  Sent();
  EnterChat();
  expectChosen("after the next start");
}

TEST_F(ScreenChatTest, AChosenResolutionStaysPressedAndIsNotSavedAgain) {
  OpenOptions();
  ClickToggle(Id::kSmallToggle);
  EXPECT_TRUE(IsOn(Id::kSmallToggle));
  EXPECT_FALSE(std::filesystem::exists("client.ini"));
}

TEST_F(ScreenChatTest, MusicIsSwitchedAtOnceAndTheChoiceStays) {
  OpenOptions();
  ClickToggle(Id::kMusicToggle);
  Deliver(PacketEnterChatAccept());
  EXPECT_FALSE(IsOn(Id::kMusicToggle));
  EXPECT_EQ(Sent(), (Codes{PacketMusicStop::kCode, PacketServerInfo::kCode}));
  OpenOptions();
  ClickToggle(Id::kMusicToggle);
  EXPECT_EQ(NextSent<PacketMusicPlay>().mUintMusicId, kLobbyMusic);
}

// An error while events are handled can leave the choice in the event queue.
TEST_F(ScreenChatTest, AChoiceOutlivesTheScreenItWasMadeOn) {
  Find<ControlButton>({Id::kOptionsWindow, Id::kMediumToggle}).HandleSdlEvent({SDL_MOUSEBUTTONDOWN});
  Deliver(PacketEnterChatAccept());
  EXPECT_EQ(ReadFile("client.ini"), "[DISPLAY]\nWidth=1024\nHeight=768\nFullscreen=0\n");
  EXPECT_TRUE(IsOn(Id::kMediumToggle));
}

}  // namespace
}  // namespace tolva::test
