#pragma once

#include <vector>

#include <SDL.h>

#include "sdl/Copy.h"
#include "sdl/Rect.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// A picture with see-through parts that is drawn often. Knows for each row where the first and the last opaque pixel
// lie, and copies only what lies between: of a tree's rectangle five sixths are see-through. Pixel for pixel what
// CopyPart gives, in about a third of the time.
class Sprite {
 public:
  // Has no picture.
  Sprite() = default;
  // Takes `surface`, which can be null. A sheet of pictures side by side is searched in columns of `columnWidth`
  // pixels, so that each picture has its own row; 0 for a single picture. Where `surface` is changed later, its pixels
  // must stay see-through where they are now.
  explicit Sprite(SurfacePtr surface, int columnWidth = 0);

  // Null without a picture.
  SDL_Surface* GetSurface() const { return mSurface.get(); }

  // As the functions of Copy.h. True, with nothing copied, without a picture.
  bool CopyPart(const Rect& part, SDL_Surface& to, int x, int y) const;
  bool CopyWhole(SDL_Surface& to, int x, int y) const;

 private:
  // The columns of the surface from the first opaque pixel to the one behind the last.
  struct Extent {
    Uint16 left = 0;
    Uint16 right = 0;
    bool isSolid = false;  // whether all between them are opaque
  };

  Extent FindExtent(int y, int firstColumn, int endColumn) const;
  const Extent& GetExtent(int y, int column) const;
  void CopyColumn(int column, const ClippedCopy& copy, SDL_Surface& to) const;

  SurfacePtr mSurface;
  int mColumnWidth = 0;
  int mColumns = 0;
  int mTop = 0;  // the first row with an opaque pixel, and the one behind the last
  int mBottom = 0;
  std::vector<Extent> mExtents;  // row by row; none where all is opaque, or not of the kind that we copy ourselves
};

}  // namespace tolva
