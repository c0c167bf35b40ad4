#pragma once

#include <SDL.h>

#include "display/GroundGrid.h"
#include "media/GameGraphics.h"
#include "sdl/SurfacePtr.h"
#include "world/Repository.h"

namespace tolva::plain {

// The ground as 25 pictures of which each field's tile is put together on a surface of its own, and all of which are
// drawn at once.
class Ground {
 public:
  // Both stay the caller's. Needs a video mode.
  Ground(GameGraphics& graphics, Repository& repository);

  // Draws all rectangles around the map's center.
  void DrawAll();
  // Draws those of column `i` and of row `j`: what a step over a border brings in. -1 for no column or row.
  void DrawEdges(int i, int j);
  // Copies the rectangles to the window with the grid's top left corner at (left, top).
  void Blit(SDL_Surface& window, int left, int top);
  SDL_Surface& GetPicture(int i, int j) { return *mPictures[i][j]; }

  // Where rectangle [i][j] begins: field (fx, fy) of area [r][c] of the map.
  struct Start {
    std::uint8_t r, c, fx, fy;
  };
  static Start FindStart(int i, int j);

 private:
  void Draw(int i, int j);
  void PaintField(const Field* field, SDL_Surface* tile, SDL_Surface& picture, int x, int y);
  void SmoothTrans(const Field& field, SDL_Surface* tile);

  GameGraphics& mGraphics;
  Repository& mRepository;
  SurfacePtr mPictures[GroundGrid::kEdge][GroundGrid::kEdge];
};

}  // namespace tolva::plain
