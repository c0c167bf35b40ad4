#pragma once

#include <cstddef>
#include <cstring>

#include <SDL.h>

namespace tolva {

// Reading and writing the pixels of surfaces with 16 bits a pixel.

// The pixels of row `y`.
inline Uint16* PixelRow(SDL_Surface& surface, int y) {
  return reinterpret_cast<Uint16*>(static_cast<Uint8*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch);
}
inline const Uint16* PixelRow(const SDL_Surface& surface, int y) {
  return reinterpret_cast<const Uint16*>(static_cast<const Uint8*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch);
}

inline void CopyPixels(const Uint16* from, Uint16* to, int count) {
  std::memcpy(to, from, static_cast<std::size_t>(count) * sizeof *from);
}

// As many pixels as fill a register of the smallest machine that we build for. Both compilers turn work on a block into
// that machine's instructions for many numbers at once; of a loop over its pixels they make so only in some places.
using PixelBlock = Uint16 __attribute__((vector_size(16)));
constexpr int kPixelBlock = sizeof(PixelBlock) / sizeof(Uint16);

// Copies a block but its pixels of the color `key`.
inline void CopyKeyedBlock(const Uint16* from, Uint16* to, PixelBlock key) {
  PixelBlock source;
  PixelBlock target;
  std::memcpy(&source, from, sizeof source);
  std::memcpy(&target, to, sizeof target);
  const auto isKey = reinterpret_cast<PixelBlock>(source == key);
  target = (target & isKey) | (source & ~isKey);
  std::memcpy(to, &target, sizeof target);
}

// Copies `count` pixels but those equal to `key`. The two must not overlap.
inline void CopyKeyedPixels(const Uint16* from, Uint16* to, int count, Uint16 key) {
  if (count < kPixelBlock) {
    for (int i = 0; i < count; ++i) to[i] = from[i] == key ? to[i] : from[i];
    return;
  }
  const PixelBlock keys = key - PixelBlock{};
  for (int i = 0; i + kPixelBlock < count; i += kPixelBlock) CopyKeyedBlock(from + i, to + i, keys);
  // Up to the end exactly: pixels of the block before that are copied twice stay as they are.
  CopyKeyedBlock(from + count - kPixelBlock, to + count - kPixelBlock, keys);
}

}  // namespace tolva
