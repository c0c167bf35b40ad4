#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

namespace tolva {

// What the controls share of SDL's calls, without their pitfalls.

// A rectangle before it is narrowed to SDL's 16 bits.
struct Area2d {
  int x;
  int y;
  int w;
  int h;
};

struct TextSize {
  int width = 0;
  int height = 0;
};

// Throws an Error with SDL's text unless `succeeded`.
void CheckSdl(bool succeeded, const char* module, const char* method);

// Copies what lies inside both surfaces of `part` of `from` to (x, y) in `to`. False when SDL fails; nothing to copy is
// no failure.
bool CopyPart(SDL_Surface* from, Area2d part, SDL_Surface* to, int x, int y);
// Copies all of `from`.
bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y);

// A software surface in the display's format with the depth and masks of `like`, contents undefined. Null when SDL
// fails.
SDL_Surface* MakeDisplaySurface(int width, int height, const SDL_Surface& like);

// The size of `text` in `font`; 0 by 0 without a font. Throws an Error when the font library fails.
TextSize MeasureText(TTF_Font* font, const char* text, const char* module, const char* method);

}  // namespace tolva
