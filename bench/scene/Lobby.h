#pragma once

#include <cstddef>
#include <memory>

#include <SDL.h>

#include "controls/ControlTextBasic.h"
#include "display/ScreenChat.h"
#include "foundation/InfoHandler.h"

namespace tolva {
class ControlChatBox;
class ControlTextBox;
}  // namespace tolva

namespace tolva::bench {

// The lobby as a player sees it who has been there for a while: its chat box is full, and at its end.
class Lobby {
 public:
  static constexpr std::size_t kUsualMessages = 200;

  // `window` stays SDL's. The working directory must be a RunDirectory.
  explicit Lobby(SDL_Surface& window, std::size_t messages = kUsualMessages);

  ScreenChat& GetScreen() { return *mScreen; }
  ControlChatBox& GetChatBox();
  ControlTextBox& GetInputBox();

  // What people in the lobby say, one after the other: short lines by speakers whose names have different widths.
  struct Message {
    const char* name;
    const char* text;
  };
  static Message GetMessage(std::size_t number);

 private:
  ControlBasic& Get(ScreenChat::ComponentId window, ScreenChat::ComponentId component);

  InfoHandler mLog;
  ControlTextBasic mFontKeeper;
  std::unique_ptr<ScreenChat> mScreen;
};

}  // namespace tolva::bench
