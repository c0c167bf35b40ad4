#include "media/DarknessTable.h"

#include <stdexcept>

#include "sdl/Copy.h"
#include "sdl/Pixels.h"
#include "sdl/Surface.h"

namespace tolva {
namespace {

// The table as a picture.
constexpr int kEdge = 256;

}  // namespace

bool DarknessTable::Serves(const SDL_Surface& picture) {
  const SDL_PixelFormat& format = *picture.format;
  return HaveCommonPixels(picture, *SDL_GetVideoSurface()) && (picture.flags & SDL_SRCCOLORKEY) != 0 &&
         format.colorkey == MapColor(picture, kTransparentColor);
}

void DarknessTable::Darken(const SDL_Surface& source, SDL_Surface& target, Uint8 darkness) {
  if (mDarkened.empty() || mDarkness != darkness) Fill(source, darkness);
  for (int y = 0; y < source.h; ++y) {
    const Uint16* from = PixelRow(source, y);
    Uint16* to = PixelRow(target, y);
    for (int x = 0; x < source.w; ++x) to[x] = mDarkened[from[x]];
  }
}

void DarknessTable::Fill(const SDL_Surface& like, Uint8 darkness) {
  const SurfacePtr colors = MakeDisplaySurface({kEdge, kEdge}, like);
  const SurfacePtr veil = MakeDisplaySurface({kEdge, kEdge}, like);
  if (colors == nullptr || veil == nullptr) throw std::runtime_error(SDL_GetError());
  for (int y = 0; y < kEdge; ++y) {
    for (int x = 0; x < kEdge; ++x) PixelRow(*colors, y)[x] = static_cast<Uint16>(kEdge * y + x);
  }
  // The veil over a picture has that picture's color key.
  SDL_SetColorKey(veil.get(), SDL_SRCCOLORKEY, like.format->colorkey);
  tolva::Fill(*veil, kBlack);
  SDL_SetAlpha(veil.get(), SDL_SRCALPHA, darkness);
  if (!CopyWhole(veil.get(), colors.get(), 0, 0)) throw std::runtime_error(SDL_GetError());
  mDarkened.clear();
  for (int y = 0; y < kEdge; ++y) mDarkened.insert(mDarkened.end(), PixelRow(*colors, y), PixelRow(*colors, y) + kEdge);
  mDarkened[like.format->colorkey] = static_cast<Uint16>(like.format->colorkey);
  mDarkness = darkness;
}

}  // namespace tolva
