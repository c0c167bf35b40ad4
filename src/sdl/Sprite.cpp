#include "sdl/Sprite.h"

#include <algorithm>
#include <utility>

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

Sprite::Extent Sprite::FindExtent(int y, int firstColumn, int endColumn) const {
  const Uint16* row = PixelRow(std::as_const(*mSurface), y);
  const auto key = static_cast<Uint16>(mSurface->format->colorkey);
  int left = firstColumn;
  int right = endColumn;
  while (left < right && row[left] == key) ++left;
  while (right > left && row[right - 1] == key) --right;
  const bool isSolid = std::find(row + left, row + right, key) == row + right;
  return {static_cast<Uint16>(left), static_cast<Uint16>(right), isSolid};
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
  const int lastColumn = (copy.source.GetRight() - 1) / mColumnWidth;
  for (int column = copy.source.x / mColumnWidth; column <= lastColumn; ++column) CopyColumn(column, copy, to);
  return true;
}

void Sprite::CopyColumn(int column, const ClippedCopy& copy, SDL_Surface& to) const {
  const auto key = static_cast<Uint16>(mSurface->format->colorkey);
  const int left = copy.source.x;
  const int right = copy.source.GetRight();
  const Uint16* source = PixelRow(std::as_const(*mSurface), copy.source.y);
  Uint16* target = PixelRow(to, copy.y) + copy.x;
  const std::ptrdiff_t sourcePitch = mSurface->pitch / static_cast<int>(sizeof *source);
  const std::ptrdiff_t targetPitch = to.pitch / static_cast<int>(sizeof *target);
  const Extent* extent = &GetExtent(copy.source.y, column);
  for (int row = 0; row < copy.source.height; ++row, extent += mColumns) {
    const int from = std::max<int>(extent->left, left);
    const int count = std::min<int>(extent->right, right) - from;
    if (count <= 0) continue;
    const Uint16* opaque = source + sourcePitch * row + from;
    Uint16* covered = target + targetPitch * row + (from - left);
    if (extent->isSolid) {
      CopyPixels(opaque, covered, count);
    } else {
      CopyKeyedPixels(opaque, covered, count, key);
    }
  }
}

bool Sprite::CopyWhole(SDL_Surface& to, int x, int y) const {
  return mSurface == nullptr || CopyPart(GetBounds(*mSurface), to, x, y);
}

}  // namespace tolva
