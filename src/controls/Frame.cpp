#include "controls/Frame.h"

#include <algorithm>
#include <iterator>

#include "sdl/Tile.h"

namespace tolva {

bool PaintFrame(SDL_Surface* picture, SDL_Surface& target) {
  constexpr int kCorner = kFrameWidth;
  constexpr int kEdge = 28;
  constexpr int kFar = kCorner + kEdge;
  const int right = target.w - kCorner;
  const int bottom = target.h - kCorner;
  // The corners come last, over the ends of the edges.
  const struct {
    Rect piece;
    Rect area;
  } parts[] = {
      {{kCorner, 0, kEdge, kCorner}, {0, 0, target.w, kCorner}},
      {{kCorner, kFar, kEdge, kCorner}, {0, bottom, target.w, kCorner}},
      {{0, kCorner, kCorner, kEdge}, {0, 0, kCorner, target.h}},
      {{kFar, kCorner, kCorner, kEdge}, {right, 0, kCorner, target.h}},
      {{0, 0, kCorner, kCorner}, {0, 0, kCorner, kCorner}},
      {{kFar, 0, kCorner, kCorner}, {right, 0, kCorner, kCorner}},
      {{0, kFar, kCorner, kCorner}, {0, bottom, kCorner, kCorner}},
      {{kFar, kFar, kCorner, kCorner}, {right, bottom, kCorner, kCorner}},
  };
  return std::all_of(std::begin(parts), std::end(parts),
                     [&](const auto& part) { return TilePart(picture, part.piece, target, part.area); });
}

}  // namespace tolva
