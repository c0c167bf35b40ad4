#include "sdl/SdlCalls.h"

#include <algorithm>
#include <limits>

#include "foundation/Error.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

void CheckSdl(bool succeeded, const char* module, const char* method) {
  if (!succeeded) throw new Error(module, method, SDL_GetError());
}

bool CopyPart(SDL_Surface* from, Area2d part, SDL_Surface* to, int x, int y) {
  if (from == nullptr || to == nullptr) {
    SDL_SetError("A surface to copy is missing");
    return false;
  }
  const int left = std::max({0, -x, -part.x});
  const int top = std::max({0, -y, -part.y});
  const int width = std::min({part.w, to->w - x, from->w - part.x}) - left;
  const int height = std::min({part.h, to->h - y, from->h - part.y}) - top;
  // The compatibility library calls it a failure to copy nothing. What starts beyond 16 bits cannot be addressed.
  constexpr int kLast = std::numeric_limits<Sint16>::max();
  const int largest = std::max({part.x + left, part.y + top, x + left, y + top});
  if (width <= 0 || height <= 0 || largest > kLast) return true;
  SDL_Rect source{static_cast<Sint16>(part.x + left), static_cast<Sint16>(part.y + top), static_cast<Uint16>(width),
                  static_cast<Uint16>(height)};
  SDL_Rect target{static_cast<Sint16>(x + left), static_cast<Sint16>(y + top), 0, 0};
  return SDL_UpperBlit(from, &source, to, &target) == 0;
}

bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y) {
  return CopyPart(from, from == nullptr ? Area2d{} : Area2d{0, 0, from->w, from->h}, to, x, y);
}

SDL_Surface* MakeDisplaySurface(int width, int height, const SDL_Surface& like) {
  const SDL_PixelFormat& format = *like.format;
  const SurfacePtr plain(SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, format.BitsPerPixel, format.Rmask,
                                              format.Gmask, format.Bmask, format.Amask));
  return plain == nullptr ? nullptr : SDL_DisplayFormat(plain.get());
}

TextSize MeasureText(TTF_Font* font, const char* text, const char* module, const char* method) {
  TextSize size;
  if (font != nullptr) CheckSdl(TTF_SizeText(font, text, &size.width, &size.height) == 0, module, method);
  return size;
}

}  // namespace tolva
