#pragma once

#include <SDL.h>

namespace tolva {

// Requests of a screen to the display that shows it. They travel as SDL_USEREVENTs because the display must not replace
// a screen that is handling an event. Before the display replaces a screen it serves the requests that point into it.
constexpr int kRequestLoginScreen = 1;
constexpr int kRequestDisplaySize = 2;  // data1 points to the screen's DisplaySize

// Queues a request for the display. False when SDL's event queue is full: the request is lost, so push it again later.
inline bool PushDisplayRequest(int code, void* data = nullptr) {
  SDL_Event event{};
  event.user.type = SDL_USEREVENT;
  event.user.code = code;
  event.user.data1 = data;
  return SDL_PushEvent(&event) == 0;
}

}  // namespace tolva
