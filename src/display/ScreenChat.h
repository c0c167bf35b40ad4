#pragma once

#include <optional>

#include "display/DisplaySize.h"
#include "display/Screen.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "protocol/LoginPackets.h"

namespace tolva {

// The lobby: chat, lists of users, versions, state of the connection, a picture of the island that darkens with the
// world, and a window of options. Its components cover the whole window and are drawn straight onto the video surface.
class ScreenChat final : public Screen {
 public:
  // EventHandler tells buttons (kQuitButton to kCreditsButton) and options (kMusicToggle to kFullScreenToggle) apart by
  // these ranges: put a new one inside its range.
  enum ComponentId : std::uint32_t {
    kChatUsersWindow = 0,
    kGameUsersWindow = 1,
    kVersionsWindow = 2,
    kInputWindow = 3,
    kStatusWindow = 4,
    kChatWindow = 5,
    kServerMessageWindow = 6,
    kOptionsWindow = 7,
    kChatUsersList = 8,
    kGameUsersList = 9,
    kServerLabel = 10,
    kServerVersionLabel = 11,
    kClientLabel = 12,
    kClientVersionLabel = 13,
    kConnectionLabel = 14,
    kPingLabel = 15,
    kPingValueLabel = 16,
    kFrameRateLabel = 17,
    kFrameRateValueLabel = 18,
    kResolutionHeading = 19,
    kSoundHeading = 20,
    kMusicLabel = 21,
    kSmallLabel = 22,
    kMediumLabel = 23,
    kLargeLabel = 24,
    kFullScreenLabel = 25,
    kRestartNote = 26,
    kChatInputBox = 27,
    kChatBox = 28,
    kLeftPanel = 29,
    kIsland = 30,
    kButtonBar = 31,
    kQuitButton = 32,
    kEnterGameButton = 33,
    kHelpButton = 34,
    kOptionsButton = 35,
    kCreditsButton = 36,
    kMusicToggle = 37,
    kSmallToggle = 38,   // 800 by 600
    kMediumToggle = 39,  // 1024 by 768
    kLargeToggle = 40,   // 1280 by 1024
    kFullScreenToggle = 41
  };

  // The options show `chosenSize`, the player's choice for the next start, or the current mode if there is none.
  ScreenChat(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger,
             std::optional<DisplaySize> chosenSize = std::nullopt);
  ~ScreenChat() override;

  void HandleSdlEvent(SDL_Event event) override;
  void EventHandler(ControlEvent event) override;
  void HandlePacket(Packet* packet) override;
  void SetFps(std::uint32_t fps) override;
  void Resize() override;
  void SetDarkness(std::uint8_t darkness) override;
  void SetSoundEnabled(bool enabled) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

 private:
  void InitializeIsland();
  void InitializeOptions();
  void HandleTextBoxChatInputEvents(const ControlEvent& event);
  void HandleButtonEvents(const ControlEvent& event);
  void HandleOptionButtonEvents(const ControlEvent& event);
  void SendChatLine();
  void ShowOptions();
  void ToggleMusic();
  void ChooseResolution(std::uint32_t toggle);
  // Asks the display to save the wanted size. When the event queue is full the next event asks again.
  void AskForDisplaySize();
  void ShowLostConnection();
  void ShowChatLine(const PacketChatMsg& message);
  void ShowChatUsers(const PacketChatUsers& users);
  void ShowUsersInGame(const PacketUserInGame& users);
  void UpdateIslandPicture();
  void PaintIsland(SDL_Surface& island);

  void SetText(ComponentId label, const char* text);

  DisplaySize mWantedSize;
  bool mSizeRequestWaits = false;
  SurfacePtr mIslandSurface;
};

}  // namespace tolva
