#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <SDL.h>

#include "display/GameDisplayRect.h"
#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"

namespace tolva {

class GameGraphics;
class InfoHandler;
class Repository;

// The ground around the player: 5 by 5 rectangles, [i][j] with columns i from left to right and rows j from top to
// bottom. Each Blit redraws the rectangles in the window that do not show the map and the light as they are now, and
// when there is none, one of the others, ahead of the player. So neither a step over a border nor a change of the
// light, after which many are stale, costs a frame that one feels. Moving finished pictures along with the map only
// saves drawing.
//
// All operations read the map: whoever calls them holds the repository's lock. Display thread only. Errors name the
// game screen, of which this is a part.
class GroundGrid {
 public:
  static constexpr int kEdge = 5;  // rectangles
  static constexpr int kWidth = kEdge * GameDisplayRect::kWidth;
  static constexpr int kHeight = kEdge * GameDisplayRect::kHeight;
  static_assert(kWidth == 2 * 2280 && kHeight == 2 * 1080);

  // All three stay the caller's and must outlive the grid. Needs a video mode.
  GroundGrid(GameGraphics& graphics, Repository& repository, InfoHandler& logger);

  // Gives rectangle [i][j] the start field (fx, fy) of area [r][c], then the rectangles around it that have none, and
  // so on, the start fields that follow. (fx, fy) is (0, 12) or (12, 0): the corners lie in the middle of the areas'
  // edges.
  void InitDisplayRects(int i, int j, int r, int c, int fx, int fy);
  // Has all ground drawn anew from the map: what the window shows by the next Blit, the rest by those after it.
  void UpdateAllDisplayRects();
  // Clears all start fields.
  void InvalidateAllDisplayRects();
  // Whether UpdateAllDisplayRects has been called.
  bool HasGround() const { return mHasGround; }

  // Sets the center area of the map that the grid has been laid out for.
  void SetLastCenter(const AreaPosition& center) { mLastCenter = center; }
  // Follows the map to its new center, if it has one.
  void CheckAreaChange();
  // Moves the ground in the direction in which the old center lies, as seen from the new one. None lays it out afresh.
  void UpdateDisplayRectsAfterMove(Direction direction);
  void ShiftDisplayRectsToNorth();
  void ShiftDisplayRectsToNorthEast();
  void ShiftDisplayRectsToEast();
  void ShiftDisplayRectsToSouthEast();
  void ShiftDisplayRectsToSouth();
  void ShiftDisplayRectsToSouthWest();
  void ShiftDisplayRectsToWest();
  void ShiftDisplayRectsToNorthWest();

  // Draws the ground with the grid's top left corner at (left, top) of the window. Black beyond the grid.
  void Blit(SDL_Surface& window, int left, int top);

 private:
  using Rects = std::array<std::array<std::unique_ptr<GameDisplayRect>, kEdge>, kEdge>;

  void InitAllDisplayRects();
  void ShiftDisplayRects(const char* method, Direction direction);
  // Draws the next rectangle, in the order of their places, if it is stale.
  void UpdateNext();

  Repository& mRepository;
  Rects mRects;
  AreaPosition mLastCenter;
  bool mHasGround = false;
  int mNextPlace = 0;  // for UpdateNext
};

}  // namespace tolva
