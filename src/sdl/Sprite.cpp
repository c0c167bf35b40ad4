#include "sdl/Sprite.h"

#include <algorithm>
#include <utility>

#include "sdl/Copy.h"
#include "sdl/Pixels.h"
#include "sdl/Surface.h"

namespace tolva {

Sprite::Sprite(SurfacePtr surface, int columnWidth) : mSurface(std::move(surface)) {
  const SDL_Surface* picture = mSurface.get();
  if (picture == nullptr || GetBounds(*picture).IsEmpty() || (picture->flags & SDL_SRCCOLORKEY) == 0) return;
  if (picture->format->BytesPerPixel != sizeof(Uint16) || SDL_MUSTLOCK(picture)) return;
  mColumnWidth = columnWidth > 0 ? columnWidth : picture->w;
  mColumns = (picture->w + mColumnWidth - 1) / mColumnWidth;
  mExtents.reserve(static_cast<std::size_t>(mColumns) * static_cast<std::size_t>(picture->h));
  for (int y = 0; y < picture->h; ++y) {
    for (int left = 0; left < picture->w; left += mColumnWidth) {
      mExtents.push_back(FindExtent(y, left, std::min(left + mColumnWidth, picture->w)));
      if (mExtents.back().left == mExtents.back().right) continue;
      if (mTop == mBottom) mTop = y;
      mBottom = y + 1;
    }
  }
}

Sprite::Extent Sprite::FindExtent(int y, int left, int right) const {
  const Uint16* row = PixelRow(std::as_const(*mSurface), y);
  const auto key = static_cast<Uint16>(mSurface->format->colorkey);
  while (left < right && row[left] == key) ++left;
  while (right > left && row[right - 1] == key) --right;
  return {static_cast<Uint16>(left), static_cast<Uint16>(right)};
}

const Sprite::Extent& Sprite::GetExtent(int y, int column) const {
  return mExtents[static_cast<std::size_t>(y) * static_cast<std::size_t>(mColumns) + static_cast<std::size_t>(column)];
}

bool Sprite::CopyPart(const Rect& part, SDL_Surface& to, int x, int y) const {
  if (mSurface == nullptr) return true;
  if (mExtents.empty() || !HaveCommonPixels(*mSurface, to)) return tolva::CopyPart(mSurface.get(), part, &to, x, y);
  const Rect opaqueRows{part.x, std::max(part.y, mTop), part.width,
                        std::min(part.GetBottom(), mBottom) - std::max(part.y, mTop)};
  const ClippedCopy copy = ClipCopy(*mSurface, opaqueRows, to, x, y + opaqueRows.y - part.y);
  if (copy.source.IsEmpty()) return true;
  const auto key = static_cast<Uint16>(mSurface->format->colorkey);
  const int right = copy.source.GetRight();
  const int firstColumn = copy.source.x / mColumnWidth;
  const int lastColumn = (right - 1) / mColumnWidth;
  for (int row = 0; row < copy.source.height; ++row) {
    const Uint16* source = PixelRow(std::as_const(*mSurface), copy.source.y + row);
    Uint16* target = PixelRow(to, copy.y + row);
    for (int column = firstColumn; column <= lastColumn; ++column) {
      const Extent& extent = GetExtent(copy.source.y + row, column);
      const int from = std::max<int>(extent.left, copy.source.x);
      const int count = std::min<int>(extent.right, right) - from;
      if (count > 0) CopyKeyedPixels(source + from, target + (copy.x + from - copy.source.x), count, key);
    }
  }
  return true;
}

bool Sprite::CopyWhole(SDL_Surface& to, int x, int y) const {
  return mSurface == nullptr || CopyPart(GetBounds(*mSurface), to, x, y);
}

}  // namespace tolva
