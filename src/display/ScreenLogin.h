#pragma once

#include "display/Screen.h"
#include "protocol/InternPackets.h"
#include "protocol/LoginPackets.h"

namespace tolva {

// Asks for name and password and sends them as a login request. Refusals and lost connections appear in a line at the
// bottom. The display replaces this screen when the server lets the player into the lobby.
class ScreenLogin final : public Screen {
 public:
  enum ComponentId : std::uint32_t {
    kLoginWindow = 0,
    kNameLabel = 1,
    kPasswordLabel = 2,
    kStatusLabel = 3,
    kNameBox = 4,
    kPasswordBox = 5,
    kTitle = 6
  };

  ScreenLogin(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
              InfoHandler* logger);
  ~ScreenLogin() override;

  void HandleSdlEvent(SDL_Event event) override;
  void EventHandler(ControlEvent event) override;
  void HandlePacket(Packet* packet) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

 private:
  void HandleTextBoxName(const ControlEvent& event);
  void HandleTextBoxPassword(const ControlEvent& event);
  void SendLoginRequest();
  void ShowFailure(const char* text);
  void ShowStatus(const char* text);
  void FocusOn(ComponentId textBox);
};

}  // namespace tolva
