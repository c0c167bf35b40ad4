#pragma once

#include <SDL.h>

namespace tolva {

// The Latin-1 character that a key types, or 0 for none. Control characters, which come from Ctrl and from cutting
// Unicode to a byte, are none: the font cannot show them.
char GetTypedCharacter(const SDL_keysym& key);

// The main keyboard's Return or the key pad's Enter.
inline bool IsReturn(SDLKey key) { return key == SDLK_RETURN || key == SDLK_KP_ENTER; }

}  // namespace tolva
