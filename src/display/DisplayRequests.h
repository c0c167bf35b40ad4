#pragma once

#include <cstdint>

#include <SDL.h>

namespace tolva {

// What a screen asks of the display that shows it. The requests travel as SDL_USEREVENTs, because the display may
// replace a screen only when that screen is not at work. Before it does, it serves those that point into the screen.
constexpr int kRequestLoginScreen = 1;
constexpr int kRequestDisplaySize = 2;  // data1 points to the screen's DisplaySize

// A video mode as client.ini holds it, in pixels.
struct DisplaySize {
  std::int32_t width;
  std::int32_t height;
  bool fullScreen;
};

// Queues the request for the display. False when SDL's event queue is full: nothing was asked, so ask again later.
inline bool PushDisplayRequest(int code, void* data = nullptr) {
  SDL_Event event{};
  event.user.type = SDL_USEREVENT;
  event.user.code = code;
  event.user.data1 = data;
  return SDL_PushEvent(&event) == 0;
}

}  // namespace tolva
