#pragma once

#include <cstdint>
#include <map>

#include <SDL.h>

#include "display/WorldPainter.h"
#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "media/GameGraphics.h"
#include "plain/Ground.h"
#include "plain/WorldPainter.h"
#include "world/Repository.h"

namespace tolva::plain {

// The world as ScreenGame shows it, drawn in the plain way. The bar along the bottom, a hundredth of a frame, is left
// out.
class Screen {
 public:
  // Both stay the caller's. Loads the pictures of the whole map and draws its ground.
  Screen(SDL_Surface& window, Repository& repository);

  void Blit();
  // Follows the map to its new center: draws the column `i` and the row `j` of rectangles that come in, -1 for none.
  void CrossBorder(int i, int j);
  // Darkens every picture and draws all ground. Needs PrepareDarkness before, which is no part of the plain way: it has
  // the store that the drawing reads ready.
  void SetDarkness(std::uint8_t darkness);
  void PrepareDarkness(std::uint8_t darkness);
  Ground& GetGround() { return mGround; }

 private:
  // A picture, and where the plain way darkens it.
  struct Picture {
    SurfacePtr source;
    SDL_Surface* mask;
    SurfacePtr darkened;
  };

  void Load(std::uint32_t id);

  SDL_Surface& mWindow;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  GameGraphics mGraphics{&mArchive};
  std::map<std::uint32_t, Picture> mPictures;
  tolva::WorldPainter mOffsets;
  Ground mGround;
  WorldPainter mPainter;
};

}  // namespace tolva::plain
