#pragma once

#include <cstdint>

#include <SDL.h>

#include "protocol/Direction.h"

namespace tolva {

// The softened border between a ground tile and a neighbour's ground, drawn into the tile. Works on any pixels of 1 to
// 4 bytes, and alike with every SDL library, because it takes pixels apart itself.
namespace tile_blend {

// Whether one place in the pixels is the same place in the other's.
bool HaveSameShape(const SDL_Surface& tile, const SDL_Surface& picture);

// Blends the edge of `tile` in `direction` (NorthEast, SouthEast, SouthWest or NorthWest; else nothing) with `picture`,
// `width` pixels deep: half and half at the edge, ever less inwards. Both have the same shape and are locked. What lies
// outside a picture smaller than a ground tile is left out.
void BlendEdge(SDL_Surface& tile, const SDL_Surface& picture, Direction direction, std::uint8_t width);

}  // namespace tile_blend

}  // namespace tolva
