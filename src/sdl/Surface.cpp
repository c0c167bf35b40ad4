#include "sdl/Surface.h"

namespace tolva {
namespace {

// Whether SDL_DisplayFormat would only copy a plain surface of that format.
bool IsDisplayFormat(const SDL_PixelFormat& format) {
  const SDL_Surface* video = SDL_GetVideoSurface();
  if (video == nullptr || (video->flags & SDL_HWSURFACE) != 0) return false;
  const SDL_PixelFormat& wanted = *video->format;
  return format.BitsPerPixel == wanted.BitsPerPixel && format.palette == nullptr && wanted.palette == nullptr &&
         format.Rmask == wanted.Rmask && format.Gmask == wanted.Gmask && format.Bmask == wanted.Bmask &&
         format.Amask == wanted.Amask;
}

}  // namespace

SurfacePtr MakeDisplaySurface(Size size, const SDL_Surface& like) {
  const SDL_PixelFormat& format = *like.format;
  SurfacePtr plain(SDL_CreateRGBSurface(SDL_SWSURFACE, size.width, size.height, format.BitsPerPixel, format.Rmask,
                                        format.Gmask, format.Bmask, format.Amask));
  if (plain == nullptr || IsDisplayFormat(*plain->format)) return plain;
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
