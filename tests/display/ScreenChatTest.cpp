#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlWindow.h"
#include "display/DisplayFixture.h"
#include "display/ScreenChat.h"
#include "protocol/MusicPackets.h"

namespace tolva::test {
namespace {

using Id = ScreenChat::ComponentId;

class ScreenChatTest : public DisplayFixture {
 protected:
  void SetUp() override {
    Start();
    EnterChat();
  }
  void EnterChat() {
    Recieve<PacketEnterChatAccept>();
    Sent();
  }
  // A click into the middle of a component.
  void ClickOn(std::initializer_list<std::uint32_t> way) {
    const ControlBasic* control = mDisplay->GetScreen();
    int x = 0;
    int y = 0;
    for (const std::uint32_t id : way) {
      control = const_cast<ControlBasic*>(control)->GetSubControl(id);
      x += control->GetX();
      y += control->GetY();
    }
    Click(x + control->GetWidth() / 2, y + control->GetHeight() / 2);
  }
  void OpenOptions() { ClickOn({Id::kButtonBar, Id::kOptionsButton}); }
  bool IsOn(Id toggle) { return Find<ControlButton>({Id::kOptionsWindow, toggle}).IsPressed(); }
  std::string Input() { return TextOf({Id::kInputWindow, Id::kChatInputBox}); }
  std::string Caption(Id window) { return TextOf({window, 1}); }
  ControlChatBox& ChatBox() { return Find<ControlChatBox>({Id::kChatWindow, Id::kChatBox}); }
};

// ---- Chat ----

TEST_F(ScreenChatTest, WhatIsTypedGoesToTheInputLineWhateverWasClicked) {
  OpenOptions();
  ClickOn({Id::kChatUsersWindow, Id::kChatUsersList});
  Type("hi 100%");
  EXPECT_EQ(Input(), "hi 100%");
  Press(SDLK_RETURN);
  const std::unique_ptr<Packet> packet(mController.Get());
  const auto* message = PacketCast<PacketChatMsg>(packet.get());
  ASSERT_NE(message, nullptr);
  EXPECT_STREQ(message->mStrMsg, "hi 100%");
  EXPECT_STREQ(message->mStrUser, "");
  EXPECT_EQ(Input(), "");
}

TEST_F(ScreenChatTest, EmptyLinesAreNotSentAndEscapeEmptiesTheLine) {
  Press(SDLK_RETURN);
  Type("never mind");
  Press(SDLK_ESCAPE);
  Press(SDLK_RETURN);
  EXPECT_TRUE(Sent().empty());
}

TEST_F(ScreenChatTest, LinesSentAtOnceKeepTheirOrder) {
  for (const char letter : {'1', '2', '3'}) {
    PushKey(static_cast<SDLKey>(letter), letter);
    PushKey(SDLK_RETURN, '\r');
  }
  mDisplay->RunPass();
  for (const char* expected : {"1", "2", "3"}) {
    const std::unique_ptr<Packet> packet(mController.Get());
    ASSERT_NE(PacketCast<PacketChatMsg>(packet.get()), nullptr);
    EXPECT_STREQ(PacketCast<PacketChatMsg>(packet.get())->mStrMsg, expected);
  }
}

TEST_F(ScreenChatTest, TheServerSpeaksUnderItsOwnName) {
  Recieve<PacketChatMsg>("*** ", "welcome");
  Recieve<PacketChatMsg>("***", "a player");
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1000)).GetText(), "[Server]");
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*ChatBox().GetSubControl(1002)).GetText(), "[***]");
}

TEST_F(ScreenChatTest, TextsMadeToHarmAreOnlyText) {
  std::string all;
  for (int character = 1; character < 256; ++character) all += static_cast<char>(character);
  for (const std::string& text : {all, std::string("%s%n%999999d"), std::string(2000, 'W'), std::string(2000, '\x01'),
                                  std::string("\x80"), std::string("\t\n\r"), std::string()}) {
    Recieve<PacketChatMsg>(text.c_str(), text.c_str());
    auto* users = new PacketChatUsers;
    users->mUintCount = 1;
    CopyText(users->mStrUsers[0], text.c_str());
    Deliver(users);
  }
  Recieve<PacketChatMsg>("Anna", "still here");
  EXPECT_EQ(ReadFile("log.clf").find("At tick"), std::string::npos) << "an error was reported";
  EXPECT_GT(ChatBox().GetEntryCount(), 7);
}

// ---- Users, versions, connection ----

TEST_F(ScreenChatTest, AnotherListOfUsersTakesThePlaceOfTheFirst) {
  for (const int count : {3, 2}) {
    auto* users = new PacketChatUsers;
    users->mUintCount = static_cast<std::uint16_t>(count);
    for (int index = 0; index < count; ++index) CopyText(users->mStrUsers[index], index == 0 ? "Anna" : "Bert");
    Deliver(users);
  }
  auto& list = Find<ControlListBox>({Id::kChatUsersWindow, Id::kChatUsersList});
  EXPECT_EQ(list.GetEntryCount(), 2);
  EXPECT_STREQ(dynamic_cast<ControlLabel&>(*list.GetSubControl(1000)).GetText(), "Anna");
  EXPECT_EQ(Caption(Id::kChatUsersWindow), " 2 users in chat");
}

TEST_F(ScreenChatTest, CountsBeyondTheListAreShownButNotFollowed) {
  auto* users = new PacketChatUsers;
  users->mUintCount = 0xFFFF;
  Deliver(users);
  auto* inGame = new PacketUserInGame;
  inGame->mUintCount = 0xFFFFFFFF;
  Deliver(inGame);
  EXPECT_EQ(Caption(Id::kChatUsersWindow), " 65535 users in chat");
  EXPECT_EQ(Caption(Id::kGameUsersWindow), " 4294967295 users in game");
  EXPECT_EQ(Find<ControlListBox>({Id::kChatUsersWindow, Id::kChatUsersList}).GetEntryCount(), 32);
}

TEST_F(ScreenChatTest, VersionsPingAndFrameRateAreShown) {
  auto* info = new PacketServerInfo;
  info->mUintVersionMajor = 1;
  info->mUintVersionMinor = 65535;
  Deliver(info);
  Recieve<PacketInternPong>(4294967295u);
  mDisplay->GetScreen()->SetFps(60);
  EXPECT_EQ(TextOf({Id::kVersionsWindow, Id::kServerVersionLabel}), "1.65535.0");
  EXPECT_EQ(TextOf({Id::kVersionsWindow, Id::kClientVersionLabel}), "0.6.23");
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kPingValueLabel}), "4294967295");
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kFrameRateValueLabel}), "60");
}

TEST_F(ScreenChatTest, ALostConnectionStaysLostAndClosesTheWayIntoTheGame) {
  constexpr Rgb kButtonFace{255, 255, 255};
  constexpr Rgb kBarFace{0, 0, 0};
  Start({});
  EnterChat();
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketEnterGameRequest::kCode});
  // A corner of the button's face, clear of frame and text.
  EXPECT_EQ(PixelAt(800 - 174 + 4, 40 + 7 + 4), kButtonFace);
  Recieve<PacketInternConnectionLost>();
  EXPECT_EQ(PixelAt(800 - 174 + 4, 40 + 7 + 4), kBarFace) << "the button is still to be seen";
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kConnectionLabel}), "Disconnected");
  EXPECT_EQ(TextOf({Id::kStatusWindow, Id::kPingValueLabel}), "0");
  ClickOn({Id::kButtonBar, Id::kEnterGameButton});
  EXPECT_TRUE(Sent().empty());
  ClickOn({Id::kButtonBar, Id::kQuitButton});
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketQuit::kCode});
}

TEST_F(ScreenChatTest, TheGamesConsentLeavesTheLobbyUntilThereIsAGameScreen) {
  const Screen* lobby = mDisplay->GetScreen();
  Recieve<PacketEnterGameAccept>();
  EXPECT_EQ(mDisplay->GetScreen(), lobby);
}

// ---- The island ----

TEST_F(ScreenChatTest, TheIslandDarkensFromPictureToPicture) {
  const struct {
    int darkness;
    Rgb color;
  } cases[] = {{0, {255, 0, 0}},     {50, {128, 127, 0}}, {100, {0, 255, 0}}, {101, {0, 253, 2}},
               {150, {0, 128, 127}}, {200, {0, 0, 255}},  {201, {0, 0, 0}},   {255, {0, 0, 0}}};
  EXPECT_EQ(PixelAt(400, 70), (Rgb{0, 0, 0})) << "dark until the server says otherwise";
  for (const auto& each : cases) {
    auto* packet = new PacketDarkness;
    packet->mByDarkness = static_cast<std::uint8_t>(each.darkness);
    Deliver(packet);
    const Rgb color = PixelAt(400, 70);
    // 565 keeps 5 or 6 bits of a colour.
    EXPECT_NEAR(color.r, each.color.r, 12) << each.darkness;
    EXPECT_NEAR(color.g, each.color.g, 12) << each.darkness;
    EXPECT_NEAR(color.b, each.color.b, 12) << each.darkness;
  }
}

TEST_F(ScreenChatTest, MissingIslandPicturesLeaveNothingOfTheOneBefore) {
  Pictures pictures = AllPictures();
  pictures.erase(kPictureIslandNight);
  Start(pictures);
  EnterChat();
  for (const int darkness : {100, 199, 200}) {
    auto* packet = new PacketDarkness;
    packet->mByDarkness = static_cast<std::uint8_t>(darkness);
    Deliver(packet);
  }
  EXPECT_EQ(PixelAt(400, 70), (Rgb{0, 0, 0}));
}

// ---- Options ----

TEST_F(ScreenChatTest, TheOptionsOpenInTheMiddleAndCloseAgain) {
  auto& window = Find<ControlWindow>({Id::kOptionsWindow});
  EXPECT_FALSE(window.IsVisible());
  OpenOptions();
  ASSERT_TRUE(window.IsVisible());
  EXPECT_EQ(window.GetX(), 250);
  EXPECT_EQ(window.GetY(), 195);
  const auto& note = Find<ControlLabel>({Id::kOptionsWindow, Id::kRestartNote});
  EXPECT_LE(note.GetTextWidth(), note.GetWidth() - 6) << "the note is cut";
  Click(250 + 300 - 10, 195 + 10);
  EXPECT_FALSE(window.IsVisible());
  EXPECT_TRUE(Sent().empty());
}

TEST_F(ScreenChatTest, ResolutionsExcludeEachOtherAndAreKeptForTheNextStart) {
  OpenOptions();
  EXPECT_TRUE(IsOn(Id::kSmallToggle));
  ClickOn({Id::kOptionsWindow, Id::kSmallToggle});
  EXPECT_TRUE(IsOn(Id::kSmallToggle));
  EXPECT_FALSE(std::filesystem::exists("client.ini")) << "nothing has changed";

  ClickOn({Id::kOptionsWindow, Id::kLargeToggle});
  ClickOn({Id::kOptionsWindow, Id::kMediumToggle});
  EXPECT_FALSE(IsOn(Id::kSmallToggle));
  EXPECT_TRUE(IsOn(Id::kMediumToggle));
  EXPECT_FALSE(IsOn(Id::kLargeToggle));
  EXPECT_EQ(ReadFile("client.ini"), "[DISPLAY]\nWidth=1024\nHeight=768\nFullscreen=0\n");
  EXPECT_EQ(SDL_GetVideoSurface()->w, 800);
}

TEST_F(ScreenChatTest, FullScreenAloneKeepsThePresentSize) {
  StartWithSize(1280, 1024);
  EnterChat();
  OpenOptions();
  EXPECT_TRUE(IsOn(Id::kLargeToggle));
  EXPECT_FALSE(IsOn(Id::kFullScreenToggle));
  ClickOn({Id::kOptionsWindow, Id::kFullScreenToggle});
  EXPECT_EQ(ReadFile("client.ini"), "[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=1\n");
}

TEST_F(ScreenChatTest, AFullScreenClientShowsThatItIsOne) {
  WriteFile("client.ini", "[DISPLAY]\nFullscreen=1\n");
  Start();
  EnterChat();
  EXPECT_TRUE(IsOn(Id::kFullScreenToggle));
}

TEST_F(ScreenChatTest, AChoiceThatFindsTheEventQueueFullIsKeptAndStoredLater) {
  OpenOptions();
  while (PushDisplayRequest(99)) continue;
  // What the toggle does when it is clicked.
  auto& toggle = Find<ControlButton>({Id::kOptionsWindow, Id::kLargeToggle});
  SDL_Event press{};
  press.type = SDL_MOUSEBUTTONDOWN;
  toggle.HandleSdlEvent(press);
  mDisplay->RunPass();
  EXPECT_EQ(ReadFile("client.ini"), "[DISPLAY]\nWidth=1280\nHeight=1024\nFullscreen=0\n");
}

TEST_F(ScreenChatTest, SettingsThatCannotBeWrittenAreReportedAndTheClientGoesOn) {
  std::filesystem::create_directories("client.ini/taken");
  OpenOptions();
  PushMouse(SDL_MOUSEBUTTONDOWN, 250 + 18, 195 + 130);
  ASSERT_TRUE(mMailbox.Put(new PacketChatMsg("Anna", "hello")));
  ASSERT_TRUE(mMailbox.Put(new PacketQuit));
  mDisplay->Run();
  EXPECT_NE(ReadFile("log.clf").find("in Module Ini"), std::string::npos);
  EXPECT_TRUE(std::filesystem::is_directory("client.ini/taken"));
}

TEST_F(ScreenChatTest, MusicIsSwitchedAtOnce) {
  OpenOptions();
  EXPECT_TRUE(IsOn(Id::kMusicToggle));
  ClickOn({Id::kOptionsWindow, Id::kMusicToggle});
  EXPECT_FALSE(IsOn(Id::kMusicToggle));
  EXPECT_EQ(Sent(), std::vector<PacketCode>{PacketMusicStop::kCode});
  ClickOn({Id::kOptionsWindow, Id::kMusicToggle});
  const std::unique_ptr<Packet> packet(mController.Get());
  ASSERT_NE(PacketCast<PacketMusicPlay>(packet.get()), nullptr);
  EXPECT_EQ(PacketCast<PacketMusicPlay>(packet.get())->mUintMusicId, 1);
  mDisplay->GetScreen()->SetSoundEnabled(false);
  EXPECT_FALSE(IsOn(Id::kMusicToggle));
  mDisplay->RunPass();
  EXPECT_TRUE(Sent().empty());
}

}  // namespace
}  // namespace tolva::test
