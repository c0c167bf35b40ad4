#pragma once

#include "display/Screen.h"
#include "media/PictureAhead.h"

namespace tolva {

// The first screen: the title picture and the version. Escape quits; every other key and every mouse button leads to
// the login screen.
class ScreenStart final : public Screen {
 public:
  static constexpr std::uint32_t kVersionLabel = 0;
  static constexpr std::uint32_t kTitle = 1;

  // Takes the title out of `title`, which may be null; otherwise it comes from the archive.
  ScreenStart(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger,
              PictureAhead* title = nullptr);
  ~ScreenStart() override;

  void HandleSdlEvent(SDL_Event event) override;
  void HandlePacket(Packet* packet) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

 private:
  void AskForLogin();

  bool mAskedForLogin = false;
};

}  // namespace tolva
