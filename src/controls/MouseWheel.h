#pragma once

#include <SDL.h>

namespace tolva {

// To SDL the mouse wheel is two more buttons: each notch presses and releases one. Nobody else shall take it for a
// button.
inline bool IsWheel(const SDL_Event& event) {
  if (event.type != SDL_MOUSEBUTTONDOWN && event.type != SDL_MOUSEBUTTONUP) return false;
  return event.button.button == SDL_BUTTON_WHEELUP || event.button.button == SDL_BUTTON_WHEELDOWN;
}

// What one notch scrolls.
constexpr int kRowsPerNotch = 3;

}  // namespace tolva
