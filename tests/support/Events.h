#pragma once

#include <SDL.h>

namespace tolva::test {

inline SDL_Event MouseEvent(Uint8 type, int x, int y, int button = SDL_BUTTON_LEFT) {
  SDL_Event event{};
  event.button.type = type;
  event.button.x = static_cast<Uint16>(x);
  event.button.y = static_cast<Uint16>(y);
  event.button.button = static_cast<Uint8>(button);
  return event;
}

inline SDL_Event KeyEvent(const SDL_keysym& key) {
  SDL_Event event{};
  event.type = SDL_KEYDOWN;
  event.key.keysym = key;
  return event;
}

// A key that types `character`.
inline SDL_keysym Typing(char character) { return {0, SDLK_UNKNOWN, KMOD_NONE, static_cast<Uint8>(character)}; }

// A key that types nothing.
inline SDL_keysym Key(SDLKey symbol, SDLMod modifiers = KMOD_NONE) { return {0, symbol, modifiers, 0}; }

}  // namespace tolva::test
