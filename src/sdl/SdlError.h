#pragma once

#include "sdl/SurfacePtr.h"

namespace tolva {

// Throws an Error with SDL's text unless `succeeded`.
void CheckSdl(bool succeeded, const char* module, const char* method);

// Returns `surface`; throws an Error with SDL's text when it is null.
SurfacePtr CheckSurface(SurfacePtr surface, const char* module, const char* method);

}  // namespace tolva
