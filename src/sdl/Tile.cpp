#include "sdl/Tile.h"

#include <algorithm>

#include "sdl/Copy.h"
#include "sdl/Surface.h"

namespace tolva {

bool TilePart(SDL_Surface* picture, const Rect& part, SDL_Surface& target, const Rect& area) {
  if (picture == nullptr || part.IsEmpty()) return true;
  for (int x = area.x; x < area.GetRight(); x += part.width) {
    for (int y = area.y; y < area.GetBottom(); y += part.height) {
      const Rect piece{part.x, part.y, std::min(part.width, area.GetRight() - x),
                       std::min(part.height, area.GetBottom() - y)};
      if (!CopyPart(picture, piece, &target, x, y)) return false;
    }
  }
  return true;
}

bool TileOver(SDL_Surface* picture, SDL_Surface& target) {
  return picture == nullptr || TilePart(picture, GetBounds(*picture), target, GetBounds(target));
}

bool TileAcross(SDL_Surface* picture, SDL_Surface& target) {
  return picture == nullptr || TilePart(picture, GetBounds(*picture), target, {0, 0, target.w, picture->h});
}

bool TileDown(SDL_Surface* picture, SDL_Surface& target, int x) {
  return picture == nullptr || TilePart(picture, GetBounds(*picture), target, {x, 0, picture->w, target.h});
}

}  // namespace tolva
