#pragma once

#include <SDL.h>

namespace tolva {

// SDL reports each notch of the mouse wheel as a press and a release of a fourth or fifth button. Everything that
// handles buttons must leave these out.
inline bool IsWheel(const SDL_Event& event) {
  if (event.type != SDL_MOUSEBUTTONDOWN && event.type != SDL_MOUSEBUTTONUP) return false;
  return event.button.button == SDL_BUTTON_WHEELUP || event.button.button == SDL_BUTTON_WHEELDOWN;
}

// How far one notch scrolls.
constexpr int kRowsPerNotch = 3;

}  // namespace tolva
