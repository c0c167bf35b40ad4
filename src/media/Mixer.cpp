#include "media/Mixer.h"

#include <SDL_loadso.h>

#include "foundation/Guard.h"

namespace tolva {
namespace {

constexpr char kLibrary[] = "libSDL_mixer-1.2.so.0";

void* CheckFound(void* found) {
  if (found == nullptr) throw new Error("SoundManager", "InitAudio", SDL_GetError());
  return found;
}

template <typename Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(CheckFound(SDL_LoadFunction(library, name)));
}

Mixer Load() {
  void* library = CheckFound(SDL_LoadObject(kLibrary));
  Mixer mixer{};
  Find(library, "Mix_OpenAudio", mixer.openAudio);
  Find(library, "Mix_CloseAudio", mixer.closeAudio);
  Find(library, "Mix_LoadMUS", mixer.loadMusic);
  Find(library, "Mix_PlayMusic", mixer.playMusic);
  Find(library, "Mix_HaltMusic", mixer.haltMusic);
  Find(library, "Mix_FreeMusic", mixer.freeMusic);
  return mixer;
}

}  // namespace

const Mixer& Mixer::Get() {
  static const Mixer mixer = Load();
  return mixer;
}

}  // namespace tolva
