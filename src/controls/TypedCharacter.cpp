#include "controls/TypedCharacter.h"

namespace tolva {

char GetTypedCharacter(const SDL_keysym& key) {
  // SDL gives the digits of the key pad no Unicode value.
  const bool isKeypadDigit = key.sym >= SDLK_KP0 && key.sym <= SDLK_KP9 && (key.mod & KMOD_NUM) != 0;
  if (isKeypadDigit) return static_cast<char>('0' + (key.sym - SDLK_KP0));
  const int byte = key.unicode & 0xFF;
  return byte < ' ' || byte == 0x7F ? '\0' : static_cast<char>(byte);
}

}  // namespace tolva
