#pragma once

#include <vector>

#include <SDL.h>

namespace tolva {

// What a black veil makes of each color that 16 bits can hold. To look up a picture's pixels takes a sixth of the time
// of laying the veil over it, for which SDL splits each pixel into its colors; the result is the same, since SDL itself
// fills the table. So the light can change in one frame for all that is seen. Needs a video mode. Display thread only.
class DarknessTable {
 public:
  // Whether the table serves the picture: 16 bits a pixel in the display's format, with the color key of pictures. The
  // veil over others may treat pixels differently.
  static bool Serves(const SDL_Surface& picture);

  // Darkens `source` into `target` of the same size, see-through pixels left out. Both are served by the table. Throws
  // std::runtime_error when SDL fails.
  void Darken(const SDL_Surface& source, SDL_Surface& target, Uint8 darkness);

 private:
  void Fill(const SDL_Surface& like, Uint8 darkness);

  std::vector<Uint16> mDarkened;  // by color; empty at first
  Uint8 mDarkness = 0;            // of the table
};

}  // namespace tolva
