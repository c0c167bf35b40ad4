#include "sdl/Copy.h"

#include "sdl/Pixels.h"
#include "sdl/Surface.h"

namespace tolva {
namespace {

// Whether our own loops may touch the pixels at any time.
bool HasOpenPixels(const SDL_Surface* surface) {
  const SDL_PixelFormat& format = *surface->format;
  return format.BytesPerPixel == sizeof(Uint16) && format.Amask == 0 && surface->pixels != nullptr &&
         !SDL_MUSTLOCK(surface) && surface->locked == 0;
}

bool HaveSameMasks(const SDL_PixelFormat& a, const SDL_PixelFormat& b) {
  return a.Rmask == b.Rmask && a.Gmask == b.Gmask && a.Bmask == b.Bmask;
}

void CopyRows(const SDL_Surface& from, SDL_Surface& to, const ClippedCopy& copy) {
  const bool hasKey = (from.flags & SDL_SRCCOLORKEY) != 0;
  const auto key = static_cast<Uint16>(from.format->colorkey);
  for (int row = 0; row < copy.source.height; ++row) {
    const Uint16* source = PixelRow(from, copy.source.y + row) + copy.source.x;
    Uint16* target = PixelRow(to, copy.y + row) + copy.x;
    if (hasKey) {
      CopyKeyedPixels(source, target, copy.source.width, key);
    } else {
      CopyPixels(source, target, copy.source.width);
    }
  }
}

}  // namespace

ClippedCopy ClipCopy(const SDL_Surface& from, const Rect& part, const SDL_Surface& to, int x, int y) {
  const int dx = x - part.x;
  const int dy = y - part.y;
  const SDL_Rect& clip = to.clip_rect;
  const Rect covered = part.Intersect(GetBounds(from)).MoveBy(dx, dy).Intersect({clip.x, clip.y, clip.w, clip.h});
  return {covered.MoveBy(-dx, -dy), covered.x, covered.y};
}

bool HaveCommonPixels(const SDL_Surface& from, const SDL_Surface& to) {
  return &from != &to && (from.flags & SDL_SRCALPHA) == 0 && HasOpenPixels(&from) && HasOpenPixels(&to) &&
         HaveSameMasks(*from.format, *to.format);
}

bool CopyPart(SDL_Surface* from, const Rect& part, SDL_Surface* to, int x, int y) {
  if (from == nullptr || to == nullptr) {
    SDL_SetError("A surface to copy is missing");
    return false;
  }
  const ClippedCopy copy = ClipCopy(*from, part, *to, x, y);
  std::optional<SDL_Rect> source = ToSdlRect(copy.source);
  // The compatibility library calls it a failure to copy nothing.
  if (!source) return true;
  if (HaveCommonPixels(*from, *to)) {
    CopyRows(*from, *to, copy);
    return true;
  }
  SDL_Rect target{static_cast<Sint16>(copy.x), static_cast<Sint16>(copy.y), source->w, source->h};
  return SDL_UpperBlit(from, &*source, to, &target) == 0;
}

bool CopyWhole(SDL_Surface* from, SDL_Surface* to, int x, int y) {
  return CopyPart(from, from == nullptr ? Rect{} : GetBounds(*from), to, x, y);
}

}  // namespace tolva
