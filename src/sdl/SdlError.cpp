#include "sdl/SdlError.h"

#include "foundation/Error.h"

namespace tolva {

void CheckSdl(bool succeeded, const char* module, const char* method) {
  if (!succeeded) throw new Error(module, method, SDL_GetError());
}

SurfacePtr CheckSurface(SurfacePtr surface, const char* module, const char* method) {
  CheckSdl(surface != nullptr, module, method);
  return surface;
}

}  // namespace tolva
