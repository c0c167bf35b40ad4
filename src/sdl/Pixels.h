#pragma once

#include <cstddef>

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

// So many pixels fill a register of the smallest machine that we build for.
constexpr int kPixelBlock = 8;

// Stores each pixel, so that no branch keeps the compiler from working on the whole block at once.
inline void CopyKeyedBlock(const Uint16* __restrict from, Uint16* __restrict to, Uint16 key) {
  for (int i = 0; i < kPixelBlock; ++i) to[i] = from[i] == key ? to[i] : from[i];
}

// Copies `count` pixels but those equal to `key`. The two must not overlap.
inline void CopyKeyedPixels(const Uint16* from, Uint16* to, int count, Uint16 key) {
  if (count < kPixelBlock) {
    for (int i = 0; i < count; ++i) to[i] = from[i] == key ? to[i] : from[i];
    return;
  }
  for (int i = 0; i + kPixelBlock < count; i += kPixelBlock) CopyKeyedBlock(from + i, to + i, key);
  // Up to the end exactly: pixels of the block before that are copied twice stay as they are.
  CopyKeyedBlock(from + count - kPixelBlock, to + count - kPixelBlock, key);
}

}  // namespace tolva
