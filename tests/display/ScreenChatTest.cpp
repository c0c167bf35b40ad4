#include <algorithm>

#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlWindow.h"
#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "protocol/MusicPackets.h"

namespace tolva::test {
namespace {

using Id = ScreenChat::ComponentId;

class ScreenChatTest : public DisplayFixture {
 protected:
  void SetUp() override { EnterChat(); }
  void EnterChat(const Entries& entries = AllPictures()) {
    Start(entries);
    Deliver(new PacketEnterChatAccept);
    EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketServerInfo::kCode});
  }
  void OpenOptions() { ClickOn({Id::kButtonBar, Id::kOptionsButton}); }
  void ClickToggle(Id toggle) { ClickOn({Id::kOptionsWindow, toggle}); }
  bool IsOn(Id toggle) { return Find<ControlButton>({Id::kOptionsWindow, toggle}).IsPressed(); }
  ControlChatBox& ChatBox() { return Find<ControlChatBox>({Id::kChatWindow, Id::kChatBox}); }
  void Darken(std::uint8_t darkness) {
    auto* packet = new PacketDarkness;
    packet->mByDarkness = darkness;
    Deliver(packet);
  }
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

TEST_F(ScreenChatTest, TextsMadeToHarmAreOnlyText) {
  Deliver(new PacketChatMsg("*** ", "welcome"));
  Deliver(new PacketChatMsg("***", "a player"));
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1000)).GetText(), "[Server]");
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1002)).GetText(), "[***]");
  std::string all;
  for (int character = 1; character < 256; ++character) all += static_cast<char>(character);
  for (const std::string& text : {all, std::string("%s%n%999999d"), std::string(2000, 'W'), std::string(2000, '\x01'),
                                  std::string("\x80"), std::string("\t\n\r"), std::string()}) {
    Deliver(new PacketChatMsg(text.c_str(), text.c_str()));
    auto* users = new PacketChatUsers;
    users->mUintCount = 1;
    CopyText(users->mStrUsers[0], text.c_str());
    Deliver(users);
  }
  Deliver(new PacketChatMsg("Anna", "still here"));
  EXPECT_EQ(ReadFile("log.clf").find("At tick"), std::string::npos) << "an error was reported";
  EXPECT_GT(ChatBox().GetEntryCount(), 9);
}

TEST_F(ScreenChatTest, UsersAreListedAnewAndCountsBeyondTheListAreNotFollowed) {
  for (const int count : {3, 65535, 2}) {
    auto* users = new PacketChatUsers;
    users->mUintCount = static_cast<std::uint16_t>(count);
    CopyText(users->mStrUsers[0], "Anna");
    Deliver(users);
    auto& list = Find<ControlListBox>({Id::kChatUsersWindow, Id::kChatUsersList});
    EXPECT_EQ(list.GetEntryCount(), std::min(count, 32));
    EXPECT_STREQ(dynamic_cast<ControlLabel&>(*list.GetSubControl(1000)).GetText(), "Anna");
    EXPECT_EQ(std::stoi(TextOf({Id::kChatUsersWindow, 1})), count);
  }
}

TEST_F(ScreenChatTest, ALostConnectionStaysLostAndClosesTheWayIntoTheGame) {
  EnterChat(OnlyTheFont());
  Deliver(new PacketInternPong(4294967295u));
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketEnterGameRequest::kCode});
  Deliver(new PacketEnterGameAccept);
  // A corner of the button's face, clear of frame and text.
  EXPECT_EQ(PixelAt(800 - 174 + 4, 40 + 7 + 4), (Rgb{255, 255, 255}));
  Deliver(new PacketInternConnectionLost);
  EXPECT_EQ(PixelAt(800 - 174 + 4, 40 + 7 + 4), (Rgb{0, 0, 0})) << "the button is still to be seen";
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kConnectionLabel}), "Disconnected");
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kPingValueLabel}), "0");
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_TRUE(Sent().empty());
}

TEST_F(ScreenChatTest, TheIslandDarkensFromPictureToPicture) {
  const struct {
    std::uint8_t darkness;
    Rgb color;
  } cases[] = {{0, {255, 0, 0}}, {50, {128, 127, 0}}, {150, {0, 128, 127}}, {200, {0, 0, 255}}, {201, {0, 0, 0}}};
  EXPECT_EQ(PixelAt(400, 70), (Rgb{0, 0, 0})) << "dark until the server says otherwise";
  for (const auto& each : cases) {
    Darken(each.darkness);
    const Rgb color = PixelAt(400, 70);
    // 565 keeps 5 or 6 bits of a colour.
    EXPECT_NEAR(color.r, each.color.r, 12) << each.darkness;
    EXPECT_NEAR(color.g, each.color.g, 12) << each.darkness;
    EXPECT_NEAR(color.b, each.color.b, 12) << each.darkness;
  }
  Entries entries = AllPictures();
  entries.erase(kPictureIslandNight);
  EnterChat(entries);
  for (const std::uint8_t darkness : {100, 199, 200}) Darken(darkness);
  EXPECT_EQ(PixelAt(400, 70), (Rgb{0, 0, 0})) << "something is left of the picture before";
}

TEST_F(ScreenChatTest, OptionsAreKeptForTheNextStart) {
  WriteFile("client.ini", "[NETWORK]\nHost=example.org\n");
  EnterChat();
  OpenOptions();
  EXPECT_TRUE(Find<ControlWindow>({Id::kOptionsWindow}).IsVisible());
  ClickToggle(Id::kSmallToggle);
  EXPECT_TRUE(IsOn(Id::kSmallToggle));
  EXPECT_EQ(ReadFile("client.ini"), "[NETWORK]\nHost=example.org\n") << "nothing has changed";

  for (const Id toggle : {Id::kMediumToggle, Id::kLargeToggle, Id::kFullScreenToggle}) ClickToggle(toggle);
  EXPECT_EQ(ReadFile("client.ini"), "[NETWORK]\nHost=example.org\n[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=1\n");
  EXPECT_EQ(SDL_GetVideoSurface()->w, 800);
  for (int start = 0; start < 2; ++start) {
    EXPECT_FALSE(IsOn(Id::kSmallToggle));
    EXPECT_FALSE(IsOn(Id::kMediumToggle));
    EXPECT_TRUE(IsOn(Id::kLargeToggle));
    EXPECT_TRUE(IsOn(Id::kFullScreenToggle));
    EnterChat();
  }
}

TEST_F(ScreenChatTest, MusicIsSwitchedAtOnceAndTheOptionsClose) {
  OpenOptions();
  ClickToggle(Id::kMusicToggle);
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketMusicStop::kCode});
  ClickToggle(Id::kMusicToggle);
  EXPECT_EQ(NextSent<PacketMusicPlay>().mUintMusicId, 1);
  Click(250 + 300 - 10, 195 + 10);
  EXPECT_FALSE(Find<ControlWindow>({Id::kOptionsWindow}).IsVisible());
}

}  // namespace
}  // namespace tolva::test
