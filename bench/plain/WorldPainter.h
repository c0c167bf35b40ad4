#pragma once

#include <vector>

#include <SDL.h>

#include "foundation/InfoHandler.h"
#include "media/GameGraphics.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"
#include "world/Repository.h"

namespace tolva::plain {

// Draws as tolva::WorldPainter does, every picture by SDL's own blit, and renders what people say anew for each frame.
class WorldPainter {
 public:
  // All three stay the caller's.
  WorldPainter(SDL_Surface& window, GameGraphics& graphics, Repository& repository);

  void BlitObjects();

 private:
  struct Label {
    SurfacePtr picture;
    int x;
    int y;
  };
  using Labels = std::vector<Label>;

  void BlitField(const Field* field, int x, int y, Labels& labels);
  void BlitCharacter(ClientCharacter& character, int x, int y, Labels& labels);
  void AddLabel(const char* text, Rgb color, int spriteX, int y, Labels& labels);

  SDL_Surface& mWindow;
  GameGraphics& mGraphics;
  Repository& mRepository;
  InfoHandler mLog;
};

}  // namespace tolva::plain
