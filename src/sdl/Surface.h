#pragma once

#include <SDL.h>

#include "sdl/Rect.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// Making and filling surfaces. A function that returns a surface returns null when SDL fails, one that returns a bool
// returns false; SDL_GetError then has the reason.

// A software surface in the display's format with the depth and masks of `like`, contents undefined.
SurfacePtr MakeDisplaySurface(Size size, const SDL_Surface& like);
// A copy in the display's format, color key included. Needs a video mode.
SurfacePtr CopyForDisplay(SDL_Surface& surface);

Size GetSize(const SDL_Surface& surface);
// The whole surface as a rectangle at (0, 0).
Rect GetBounds(const SDL_Surface& surface);

Uint32 MapColor(const SDL_Surface& surface, Rgb color);
// Does nothing to a surface without pixels.
bool Fill(SDL_Surface& surface, Rgb color);
// Fills what of `part` lies inside the surface.
bool FillPart(SDL_Surface& surface, const Rect& part, Rgb color);
// Copies from the surface leave out the pixels of this color.
bool SetColorKey(SDL_Surface& surface, Rgb color);

}  // namespace tolva
