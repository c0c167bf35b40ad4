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
// bottom. What they show is a function of the map and the light: whatever has happened to either, the next Blit draws
// every rectangle anew that lies in the window and is not current. Moving the pictures along with the map only saves
// drawing.
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

  // Gives rectangle [i][j], and from there all that have none, the start field that follows from its place.
  // (fx, fy) is (0, 12) or (12, 0): the rectangles' corners lie in the middle of the areas' edges.
  void InitDisplayRects(int i, int j, int r, int c, int fx, int fy);
  // Draws all ground, for the place where the map is now.
  void UpdateAllDisplayRects();
  void InvalidateAllDisplayRects();
  // Whether there is ground to show: UpdateAllDisplayRects has been called.
  bool HasGround() const { return mHasGround; }

  // The centre of the map for which the pictures have been laid out.
  void SetLastCenter(const AreaPosition& center) { mLastCenter = center; }
  // Follows the map when it is not where it was.
  void CheckAreaChange();
  // `direction` is where the ground moves: the old centre lies there, as seen from the new one.
  void UpdateDisplayRectsAfterMove(Direction direction);
  void ShiftDisplayRectsToNorth();
  void ShiftDisplayRectsToNorthEast();
  void ShiftDisplayRectsToEast();
  void ShiftDisplayRectsToSouthEast();
  void ShiftDisplayRectsToSouth();
  void ShiftDisplayRectsToSouthWest();
  void ShiftDisplayRectsToWest();
  void ShiftDisplayRectsToNorthWest();

  // Draws the ground onto `window` so that the grid's top left corner lies at (left, top). Black where the grid ends.
  void Blit(SDL_Surface& window, int left, int top);

 private:
  using Rects = std::array<std::array<std::unique_ptr<GameDisplayRect>, kEdge>, kEdge>;

  void InitAllDisplayRects();
  void ShiftDisplayRects(const char* method, Direction direction);
  std::unique_ptr<GameDisplayRect> MakeRect() const;

  GameGraphics& mGraphics;
  Repository& mRepository;
  InfoHandler& mLogger;
  Rects mRects;
  AreaPosition mLastCenter;
  bool mHasGround = false;
};

}  // namespace tolva
