#include "sdl/Surface.h"

namespace tolva {

namespace {

bool IsInDisplayFormat(const SDL_Surface& surface) {
  const SDL_Surface* video = SDL_GetVideoSurface();
  if (video == nullptr || video->format->palette != nullptr) return false;
  const SDL_PixelFormat& display = *video->format;
  const SDL_PixelFormat& own = *surface.format;
  return own.BitsPerPixel == display.BitsPerPixel && own.Rmask == display.Rmask && own.Gmask == display.Gmask &&
         own.Bmask == display.Bmask && own.Amask == display.Amask;
}

}  // namespace

SurfacePtr MakeDisplaySurface(Size size, const SDL_Surface& like) {
  const SDL_PixelFormat& format = *like.format;
  SurfacePtr plain(SDL_CreateRGBSurface(SDL_SWSURFACE, size.width, size.height, format.BitsPerPixel, format.Rmask,
                                        format.Gmask, format.Bmask, format.Amask));
  // A conversion into its own format would only double the work.
  if (plain == nullptr || IsInDisplayFormat(*plain)) return plain;
  return CopyForDisplay(*plain);
}

SurfacePtr CopyForDisplay(SDL_Surface& surface) { return SurfacePtr(SDL_DisplayFormat(&surface)); }

Size GetSize(const SDL_Surface& surface) { return {surface.w, surface.h}; }

Rect GetBounds(const SDL_Surface& surface) { return {0, 0, surface.w, surface.h}; }

Uint32 MapColor(const SDL_Surface& surface, Rgb color) { return SDL_MapRGB(surface.format, color.r, color.g, color.b); }

bool Fill(SDL_Surface& surface, Rgb color) {
  if (GetBounds(surface).IsEmpty()) return true;
  return SDL_FillRect(&surface, nullptr, MapColor(surface, color)) == 0;
}

bool FillPart(SDL_Surface& surface, const Rect& part, Rgb color) {
  std::optional<SDL_Rect> inside = ToSdlRect(part.Intersect(GetBounds(surface)));
  return !inside || SDL_FillRect(&surface, &*inside, MapColor(surface, color)) == 0;
}

bool SetColorKey(SDL_Surface& surface, Rgb color) {
  return SDL_SetColorKey(&surface, SDL_SRCCOLORKEY, MapColor(surface, color)) == 0;
}

}  // namespace tolva
