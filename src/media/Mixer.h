#pragma once

#include <SDL_mixer.h>

namespace tolva {

// SDL_mixer's functions, taken out of the library when the first is needed. Some thirty decoders and synthesizers come
// with it, which take as long to load as all else that the client links: started with the program, they would delay its
// first picture by a tenth.
struct Mixer {
  // Loads the library with the first call; it stays until the process ends. Throws an Error that says what is missing.
  static const Mixer& Get();

  decltype(&Mix_OpenAudio) openAudio;
  decltype(&Mix_CloseAudio) closeAudio;
  decltype(&Mix_LoadMUS) loadMusic;
  decltype(&Mix_PlayMusic) playMusic;
  decltype(&Mix_HaltMusic) haltMusic;
  decltype(&Mix_FreeMusic) freeMusic;
};

}  // namespace tolva
