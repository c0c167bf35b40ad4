#pragma once

#include <cstdint>

#include <SDL.h>

#include "protocol/Direction.h"

namespace tolva {

// Softens the border between a ground tile and a neighbor's ground. Works on pixels of 1 to 4 bytes, and equally with
// every SDL library, because it splits pixels into channels itself.
namespace tile_blend {

// Whether both lay out their pixels in the same way, as BlendEdge needs.
bool HaveSameShape(const SDL_Surface& tile, const SDL_Surface& picture);

// Blends the edge of `tile` in `direction` (NorthEast, SouthEast, SouthWest or NorthWest, else none) with `picture`,
// `width` pixels deep: half of each at the edge, then less and less of `picture`. Both must have the same shape and be
// locked. Leaves out what lies outside a picture that is smaller than a ground tile.
void BlendEdge(SDL_Surface& tile, const SDL_Surface& picture, Direction direction, std::uint8_t width);

}  // namespace tile_blend

}  // namespace tolva
