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

// So many pixels fill a register of the smallest machine that we build for.
constexpr int kPixelBlock = 8;

// Has no branch for a pixel, and stores after it has loaded all, so that the compiler works on the whole block at once.
inline void CopyKeyedBlock(const Uint16* from, Uint16* to, Uint16 key) {
  Uint16 source[kPixelBlock];
  Uint16 target[kPixelBlock];
  std::memcpy(source, from, sizeof source);
  std::memcpy(target, to, sizeof target);
  for (int i = 0; i < kPixelBlock; ++i) target[i] = source[i] == key ? target[i] : source[i];
  std::memcpy(to, target, sizeof target);
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
