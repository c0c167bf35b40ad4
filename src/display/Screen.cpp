#include "display/Screen.h"

#include "foundation/Guard.h"

namespace tolva {

Screen::Screen(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
               InfoHandler* logger)
    : ControlBasic(id, videoSurface, context, callback),
      mLogger(logger),
      mVideoSurface(videoSurface),
      mArchive("Graphics", logger),
      mComponents(mArchive) {}

Screen::~Screen() = default;

Packet* Screen::HandleEvent(SDL_Event) { return nullptr; }

void Screen::HandlePacket(Packet* packet) {
  Guard("Screen", "HandlePacket", [&] { delete packet; });
}

void Screen::SetDarkness(std::uint8_t darkness) { mDarkness = darkness; }

void Screen::SetSoundEnabled(bool enabled) { mSoundEnabled = enabled; }

std::unique_ptr<Packet> Screen::GetNextPacket() {
  return Guard("Screen", "GetNextPacket", [&] { return mOutgoing.Get(); });
}

void Screen::QueuePacket(std::unique_ptr<Packet> packet) {
  if (mOutgoing.Put(packet.get())) static_cast<void>(packet.release());
}

bool Screen::IsEscape(const SDL_Event& event) {
  return event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_ESCAPE;
}

void Screen::BuildAroundPicture(std::span<const Component> table, std::uint32_t picture) {
  FillWindow();
  SetClearOnBlit(true);
  SetBackgroundColor(0, 0, 0);
  mComponents.Build(*this, table);
  mComponents.PlaceAll();
  mComponents.Get<ControlBasic>(picture).SetEnabled(false);
}

void Screen::FillWindow() { SetPosition(0, 0, mVideoSurface->w, mVideoSurface->h); }

}  // namespace tolva
