#pragma once

#include <cstdint>
#include <vector>

#include "display/FieldTiles.h"
#include "foundation/Info.h"
#include "protocol/FieldPosition.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

class GameGraphics;
class InfoHandler;
class Repository;

// The ground of one stretch of the map as a ready picture, so that a frame costs one blit and not hundreds of tiles.
// Reads the map: whoever calls Update, IsCurrent, RebuildGroundSurface or SmoothTrans holds the repository's lock.
// Display thread only.
class GameDisplayRect {
 public:
  // Half an area is as many tiles wide and high.
  static constexpr int kTiles = kAreaEdge / 2;
  static constexpr int kWidth = kTiles * kTileWidth;
  static constexpr int kHeight = kTiles * kTileHeight;
  static_assert(kWidth == 912 && kHeight == 432);

  // All three stay the caller's and must outlive the rectangle. Needs a video mode. Black until the first Update.
  GameDisplayRect(GameGraphics* graphics, Repository* repository, InfoHandler* infoHandler);
  virtual ~GameDisplayRect() = default;

  GameDisplayRect(const GameDisplayRect&) = delete;
  GameDisplayRect& operator=(const GameDisplayRect&) = delete;

  // The field whose tile lies at the top left corner: area [r][c] of the client map and field (fx, fy) in it.
  void SetStartField(std::uint8_t r, std::uint8_t c, std::uint8_t fx, std::uint8_t fy);
  void ClearStartField() { mStartFieldSet = false; }
  bool IsStartFieldSet() const { return mStartFieldSet; }

  // Draws the ground from the map.
  void Update();
  // Whether the picture shows what Update would draw now: the rectangle knows which state of which areas, and what
  // light, its picture comes from.
  bool IsCurrent() const;
  // Without a start field on the map it logs that and leaves the picture as it was. Fields beyond the map's edge, and
  // all of them while picture 100000 is missing, are left unpainted.
  void RebuildGroundSurface();
  // Blends the tile, which holds the ground of `field`, with its four neighbours' where their ground differs. A
  // neighbour whose picture has another size or format than the tile is left out.
  void SmoothTrans(const Field& field, SDL_Surface* tile);

  // Lays the picture onto `target` with its top left corner at (x, y).
  void Blit(SDL_Surface* target, std::int16_t x, std::int16_t y);

 private:
  // One of the areas that the picture comes from, or its absence.
  struct Source {
    bool exists = false;
    AreaPosition position;
    std::uint64_t groundState = 0;

    bool operator==(const Source& other) const;
  };

  const Field* FindStartField() const;
  Source FindSource(Step fromStart) const;
  void NoteShown();
  void PaintRow(const Field* first, SDL_Surface* tile, int y);
  void PaintField(const Field* field, SDL_Surface* tile, int x, int y);
  void Log(const char* text, InfoLevel level);

  Repository* const mRepository;
  InfoHandler* const mInfoHandler;
  GameGraphics* const mGraphics;
  std::uint8_t mStartR = 0;
  std::uint8_t mStartC = 0;
  std::uint8_t mStartFx = 0;
  std::uint8_t mStartFy = 0;
  bool mStartFieldSet = false;
  std::vector<Step> mSourcePlaces;  // of the areas that the picture comes from, in steps from the start field's
  std::vector<Source> mShown;       // of the picture, in the same order; empty for no picture
  std::uint8_t mShownDarkness = 0;
  SurfacePtr mGroundSurface;
};

}  // namespace tolva
