#pragma once

#include <SDL_ttf.h>

#include "sdl/Rect.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The size of `text` in `font`; 0 by 0 without a font. Throws an Error when the font library fails.
Size MeasureText(TTF_Font* font, const char* text, const char* module, const char* method);

// One line of Latin-1 text on a transparent ground. Null without a font and when the font library fails, as it does for
// a text that is 0 pixels wide.
SurfacePtr RenderText(TTF_Font* font, const char* text, Rgb color);

}  // namespace tolva
