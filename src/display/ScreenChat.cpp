#include "display/ScreenChat.h"

#include <algorithm>
#include <iterator>

#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlWindow.h"
#include "display/DisplayRequests.h"
#include "display/FormattedText.h"
#include "display/ScreenChatTable.h"
#include "foundation/Guard.h"
#include "protocol/MusicPackets.h"
#include "protocol/PacketDispatch.h"
#include "sdl/Copy.h"
#include "sdl/Surface.h"

namespace tolva {
namespace {

constexpr Rgb kLostColor{168, 36, 30};

// The toggle of each of kResolutions.
constexpr ScreenChat::ComponentId kResolutionToggles[] = {ScreenChat::kSmallToggle, ScreenChat::kMediumToggle,
                                                          ScreenChat::kLargeToggle};
static_assert(std::size(kResolutionToggles) == std::size(kResolutions));

}  // namespace

ScreenChat::ScreenChat(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
                       InfoHandler* logger, std::optional<DisplaySize> chosenSize)
    : Screen(id, videoSurface, context, callback, logger),
      mWantedSize(chosenSize.value_or(
          DisplaySize{videoSurface->w, videoSurface->h, (videoSurface->flags & SDL_FULLSCREEN) != 0})) {
  Guard("ScreenChat", "ScreenChat", [&] { ScreenChat::InitializeComponents(); });
}

ScreenChat::~ScreenChat() { ScreenChat::TerminateComponents(); }

void ScreenChat::InitializeComponents() {
  Guard("ScreenChat", "InitializeComponents", [&] {
    FillWindow();
    SetBackgroundColor(0, 0, 0);
    mComponents.Build(*this, GetScreenChatTable());
    InitializeIsland();
    InitializeOptions();

    auto& chatBox = mComponents.Get<ControlChatBox>(kChatBox);
    chatBox.SetMaxMessages(50);
    chatBox.SetMaxLines(100);
    chatBox.SetNameColor(kCream.r, kCream.g, kCream.b);
    SetText(kClientVersionLabel, ToText(kVersion).c_str());

    ScreenChat::Resize();
    SetOverrideBaseSurface(true);
    SetActive(false);
    mComponents.Get<ControlTextBox>(kChatInputBox).SetActive(true);
  });
}

void ScreenChat::InitializeIsland() {
  if (SDL_Surface* dusk = mComponents.GetPicture(kPictureIslandDusk)) mIslandSurface = CopyForDisplay(*dusk);
  mComponents.Get<ControlBasic>(kIsland).SetBackgroundSurface(mIslandSurface.get());
  UpdateIslandPicture();
}

void ScreenChat::InitializeOptions() {
  mComponents.Get<ControlButton>(kMusicToggle).SetPressed(mSoundEnabled);
  mComponents.Get<ControlButton>(kFullScreenToggle).SetPressed(mWantedSize.fullScreen);
  for (std::size_t i = 0; i < std::size(kResolutions); ++i) {
    const bool isWanted = kResolutions[i] == Size{mWantedSize.width, mWantedSize.height};
    mComponents.Get<ControlButton>(kResolutionToggles[i]).SetPressed(isWanted);
  }
}

void ScreenChat::TerminateComponents() {
  mComponents.FreePictures();
  mIslandSurface.reset();
}

void ScreenChat::Resize() {
  Guard("ScreenChat", "Resize", [&] { mComponents.PlaceAll(); });
}

void ScreenChat::HandleSdlEvent(SDL_Event event) {
  GuardControl("ScreenStart", "HandleSdlEvent", [&] {
    if (mSizeRequestWaits) AskForDisplaySize();
    // Typed text goes to the input line, whatever was clicked last.
    if (event.type == SDL_KEYDOWN) mComponents.Get<ControlTextBox>(kChatInputBox).SetActive(true);
    ControlBasic::HandleSdlEvent(event);
  });
}

void ScreenChat::EventHandler(ControlEvent event) {
  GuardControl("ScreenChat", "EventHandler", [&] {
    const std::uint32_t sender = event.sender->GetId();
    if (sender == kChatInputBox) HandleTextBoxChatInputEvents(event);
    if (sender >= kQuitButton && sender <= kCreditsButton) HandleButtonEvents(event);
    if (sender >= kMusicToggle && sender <= kFullScreenToggle) HandleOptionButtonEvents(event);
  });
}

void ScreenChat::HandleTextBoxChatInputEvents(const ControlEvent& event) {
  GuardControl("ScreenChat", "HandleTextBoxChatInputEvents", [&] {
    if (event.code == ControlTextBox::kEventEnter) SendChatLine();
    if (event.code == ControlTextBox::kEventEscape) mComponents.Get<ControlTextBox>(kChatInputBox).SetText("");
  });
}

void ScreenChat::SendChatLine() {
  auto& input = mComponents.Get<ControlTextBox>(kChatInputBox);
  if (input.GetText()[0] == '\0') return;
  QueuePacket(std::make_unique<PacketChatMsg>("", input.GetText()));
  input.SetText("");
}

void ScreenChat::HandleButtonEvents(const ControlEvent& event) {
  GuardControl("ScreenChat", "HandleButtonEvents", [&] {
    // A button that was hidden while it was held still reports its release.
    if (event.code != ControlButton::kEventReleased || !event.sender->IsVisible()) return;
    switch (event.sender->GetId()) {
      case kQuitButton:
        return QueuePacket(std::make_unique<PacketQuit>());
      case kEnterGameButton:
        return QueuePacket(std::make_unique<PacketEnterGameRequest>());
      case kOptionsButton:
        return ShowOptions();
    }
  });
}

void ScreenChat::ShowOptions() {
  auto& window = mComponents.Get<ControlWindow>(kOptionsWindow);
  if (window.IsVisible()) return;
  const Rect place = CenterIn({GetWidth(), GetHeight()}, {window.GetWidth(), window.GetHeight()});
  window.SetPosition(place.x, place.y);
  window.SetVisible(true);
}

void ScreenChat::HandleOptionButtonEvents(const ControlEvent& event) {
  GuardControl("ScreenChat", "HandleOptionButtonEvents", [&] {
    mWantedSize.fullScreen = mComponents.Get<ControlButton>(kFullScreenToggle).IsPressed();
    if (event.code != ControlButton::kEventToggled) return;
    switch (event.sender->GetId()) {
      case kMusicToggle:
        return ToggleMusic();
      case kFullScreenToggle:
        return AskForDisplaySize();
      default:
        return ChooseResolution(event.sender->GetId());
    }
  });
}

void ScreenChat::ToggleMusic() {
  const bool wanted = mComponents.Get<ControlButton>(kMusicToggle).IsPressed();
  SetSoundEnabled(wanted);
  if (wanted) {
    QueuePacket(std::make_unique<PacketMusicPlay>(kLobbyMusic));
  } else {
    QueuePacket(std::make_unique<PacketMusicStop>());
  }
}

void ScreenChat::ChooseResolution(std::uint32_t toggle) {
  auto& chosen = mComponents.Get<ControlButton>(toggle);
  if (!chosen.IsPressed()) return chosen.SetPressed(true);
  for (std::size_t i = 0; i < std::size(kResolutions); ++i) {
    if (kResolutionToggles[i] == toggle) {
      mWantedSize.width = kResolutions[i].width;
      mWantedSize.height = kResolutions[i].height;
    } else {
      mComponents.Get<ControlButton>(kResolutionToggles[i]).SetPressed(false);
    }
  }
  AskForDisplaySize();
}

void ScreenChat::AskForDisplaySize() { mSizeRequestWaits = !PushDisplayRequest(kRequestDisplaySize, &mWantedSize); }

void ScreenChat::HandlePacket(Packet* packet) {
  const std::unique_ptr<Packet> owned(packet);
  Guard("ScreenStart", "HandlePacket", [&] {
    Dispatch(
        *packet, [&](const PacketInternConnectionLost&) { ShowLostConnection(); },
        [&](const PacketInternPong& pong) { SetText(kPingValueLabel, FormattedText("%u", pong.mUintTick)); },
        [&](const PacketChatMsg& message) { ShowChatLine(message); },
        [&](const PacketChatUsers& users) { ShowChatUsers(users); },
        [&](const PacketUserInGame& users) { ShowUsersInGame(users); },
        [&](const PacketServerInfo& server) { SetText(kServerVersionLabel, ToText(server).c_str()); },
        [&](const PacketDarkness& darkness) { SetDarkness(darkness.mByDarkness); });
  });
}

void ScreenChat::ShowLostConnection() {
  auto& label = mComponents.Get<ControlLabel>(kConnectionLabel);
  label.SetForegroundColor(kLostColor.r, kLostColor.g, kLostColor.b);
  label.SetText("Disconnected");
  SetText(kPingValueLabel, "0");
  mComponents.Get<ControlButton>(kEnterGameButton).SetVisible(false);
  // The bar still shows the button that was drawn onto it.
  mComponents.Get<ControlBasic>(kButtonBar).Refresh(false);
}

void ScreenChat::ShowChatLine(const PacketChatMsg& message) {
  const char* speaker = message.IsFromServer() ? "Server" : message.mStrUser;
  mComponents.Get<ControlChatBox>(kChatBox).AddEntry(speaker, message.mStrMsg);
}

void ScreenChat::ShowChatUsers(const PacketChatUsers& users) {
  const FormattedText caption(" %u users in chat", unsigned{users.mUintCount});
  mComponents.Get<ControlWindow>(kChatUsersWindow).SetCaption(caption);
  auto& list = mComponents.Get<ControlListBox>(kChatUsersList);
  list.ClearEntries();
  // Renders the list once and not for each name.
  list.SetRefreshEnabled(false);
  const std::size_t count = std::min<std::size_t>(users.mUintCount, kUserListCapacity);
  for (std::size_t index = 0; index < count; ++index) list.AddEntry(users.mStrUsers[index]);
  list.SetRefreshEnabled(true);
  list.Refresh(true);
}

void ScreenChat::ShowUsersInGame(const PacketUserInGame& users) {
  const FormattedText caption(" %u users in game", users.mUintCount);
  mComponents.Get<ControlWindow>(kGameUsersWindow).SetCaption(caption);
  auto& list = mComponents.Get<ControlListBox>(kGameUsersList);
  list.ClearEntries();
  list.Refresh(true);
}

void ScreenChat::SetFps(std::uint32_t fps) {
  Guard("ScreenChat", "SetFps", [&] { SetText(kFrameRateValueLabel, FormattedText("%u", fps)); });
}

void ScreenChat::SetDarkness(std::uint8_t darkness) {
  Guard("Screen", "SetDarkness", [&] {
    Screen::SetDarkness(darkness);
    UpdateIslandPicture();
  });
}

void ScreenChat::SetSoundEnabled(bool enabled) {
  Guard("Screen", "SetSoundEnabled", [&] {
    Screen::SetSoundEnabled(enabled);
    mComponents.Get<ControlButton>(kMusicToggle).SetPressed(enabled);
  });
}

void ScreenChat::UpdateIslandPicture() {
  GuardControl("ScreenChat", "UpdateIslandPicture", [&] {
    if (mIslandSurface != nullptr) PaintIsland(*mIslandSurface);
    mComponents.Get<ControlBasic>(kIsland).Refresh(true);
  });
}

// Each picture fades into the next while the darkness grows by kStageDepth. Beyond the last one there is only black.
void ScreenChat::PaintIsland(SDL_Surface& island) {
  static constexpr PictureId kStages[] = {kPictureIslandDay, kPictureIslandDusk, kPictureIslandNight};
  constexpr int kStageDepth = 100;
  constexpr int kMaxShown = kStageDepth * (static_cast<int>(std::size(kStages)) - 1);
  Fill(island, kBlack);
  if (mDarkness > kMaxShown) return;
  const int stage = mDarkness / kStageDepth;
  const int step = mDarkness % kStageDepth;
  if (SDL_Surface* now = mComponents.GetPicture(kStages[stage])) CopyWhole(now, &island, 0, 0);
  SDL_Surface* next = step == 0 ? nullptr : mComponents.GetPicture(kStages[stage + 1]);
  if (next == nullptr) return;
  const SurfacePtr veil = CopyForDisplay(*next);
  if (veil == nullptr) return;
  SDL_SetAlpha(veil.get(), SDL_SRCALPHA | SDL_RLEACCEL, static_cast<std::uint8_t>(step * 255 / kStageDepth));
  CopyWhole(veil.get(), &island, 0, 0);
}

void ScreenChat::SetText(ComponentId label, const char* text) { mComponents.Get<ControlLabel>(label).SetText(text); }

}  // namespace tolva
