#include "display/ScreenStart.h"

#include "controls/ControlLabel.h"
#include "controls/MouseWheel.h"
#include "display/DisplayRequests.h"
#include "foundation/Guard.h"
#include "protocol/LoginPackets.h"
#include "protocol/VersionNumbers.h"

namespace tolva {
namespace {

// In a strip that begins below the centered picture.
constexpr Rect PlaceVersionLabel(const Surroundings& around) {
  const int below = around.holder.height - (around.holder.height - around.picture.height) / 2;
  return {0, below, around.holder.width, 20};
}

constexpr Component kTable[] = {
    {.id = ScreenStart::kVersionLabel,
     .kind = ComponentKind::Label,
     .place = PlaceVersionLabel,
     .measured = kPictureTitle,
     .alignment = ControlLabel::kMiddleCenter},
    {.id = ScreenStart::kTitle,
     .kind = ComponentKind::Panel,
     .place = PlaceTitle,
     .picture = kPictureTitle,
     .measured = kPictureTitle},
};

}  // namespace

ScreenStart::ScreenStart(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
                         InfoHandler* logger, PictureAhead* title)
    : Screen(id, videoSurface, context, callback, logger) {
  Guard("ScreenStart", "ScreenStart", [&] {
    if (SurfacePtr picture = title == nullptr ? nullptr : title->Take()) {
      mComponents.AddPicture(kPictureTitle, std::move(picture));
    }
    ScreenStart::InitializeComponents();
  });
}

ScreenStart::~ScreenStart() { ScreenStart::TerminateComponents(); }

void ScreenStart::InitializeComponents() {
  Guard("ScreenStart", "InitializeComponents", [&] {
    BuildAroundPicture(kTable, kTitle);

    mComponents.Get<ControlLabel>(kVersionLabel).SetText(("Press any key - Version " + ToText(kVersion)).c_str());
  });
}

void ScreenStart::TerminateComponents() { mComponents.FreePictures(); }

void ScreenStart::HandleSdlEvent(SDL_Event event) {
  Guard("ScreenStart", "HandleSdlEvent", [&] {
    ControlBasic::HandleSdlEvent(event);
    if (IsEscape(event)) return QueuePacket(std::make_unique<PacketQuit>());
    if (event.type == SDL_KEYDOWN || (event.type == SDL_MOUSEBUTTONDOWN && !IsWheel(event))) AskForLogin();
  });
}

// Once only: with a second request the display would replace the login screen, and what was typed there would be lost.
void ScreenStart::AskForLogin() {
  if (!mAskedForLogin) mAskedForLogin = PushDisplayRequest(kRequestLoginScreen);
}

void ScreenStart::HandlePacket(Packet* packet) {
  Guard("ScreenStart", "HandlePacket", [&] { delete packet; });
}

}  // namespace tolva
