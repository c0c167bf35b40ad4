#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "display/FieldTiles.h"
#include "foundation/Info.h"
#include "protocol/FieldPosition.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

class GameGraphics;
class GroundTiles;
class InfoHandler;
class Repository;

// The ground of one part of the map as a finished picture, so that a frame costs one copy and not hundreds of tiles.
// Whoever calls Update, IsCurrent, RebuildGroundSurface or SmoothTrans holds the repository's lock. Display thread
// only.
class GameDisplayRect {
 public:
  // Along each edge: half an area.
  static constexpr int kTiles = kAreaEdge / 2;
  static constexpr int kWidth = kTiles * kTileWidth;
  static constexpr int kHeight = kTiles * kTileHeight;
  static_assert(kWidth == 912 && kHeight == 432);

  // The first three stay the caller's and must outlive the rectangle. Needs a video mode. The picture is black until
  // the first Update. Rectangles that are drawn from one map share their `tiles`; null for tiles of its own.
  GameDisplayRect(GameGraphics* graphics, Repository* repository, InfoHandler* infoHandler,
                  std::shared_ptr<GroundTiles> tiles = nullptr);
  virtual ~GameDisplayRect();

  GameDisplayRect(const GameDisplayRect&) = delete;
  GameDisplayRect& operator=(const GameDisplayRect&) = delete;

  // Sets the field whose tile lies at the top left corner: field (fx, fy) of area [r][c] of the client map.
  void SetStartField(std::uint8_t r, std::uint8_t c, std::uint8_t fx, std::uint8_t fy);
  void ClearStartField() { mStartFieldSet = false; }
  bool IsStartFieldSet() const { return mStartFieldSet; }

  // As after construction: without a start field and, from the next Update on, black where nothing is drawn. Takes no
  // new surface, as a new rectangle does.
  void Reset();

  // Draws the ground from the map.
  void Update();
  // Makes the picture count as stale, whatever it shows.
  void Invalidate() { mShown.clear(); }
  // Whether Update would draw the same picture: the areas' ground and the light are those that it was drawn from.
  bool IsCurrent() const;
  // Without a start field on the map it logs that and keeps the picture. Leaves fields beyond the map's edge unpainted,
  // and all of them when picture 100000 is missing.
  void RebuildGroundSurface();
  // GroundTiles::Blend.
  void SmoothTrans(const Field& field, SDL_Surface* tile);

  // Copies the picture to `target` with its top left corner at (x, y).
  void Blit(SDL_Surface* target, std::int16_t x, std::int16_t y);

 private:
  // The state of an area that the picture shows; also of one that the map does not have.
  struct Source {
    bool exists = false;
    AreaPosition position;
    std::uint64_t groundState = 0;

    bool operator==(const Source& other) const;
  };

  const Field* FindStartField() const;
  Source FindSource(Step fromStart) const;
  void NoteShown();
  struct LastTile;
  void PaintRow(const Field* first, LastTile& last, int y);
  void PaintField(const Field* field, LastTile& last, int x, int y);
  void Log(const char* text, InfoLevel level);

  Repository* const mRepository;
  InfoHandler* const mInfoHandler;
  GameGraphics* const mGraphics;
  const std::shared_ptr<GroundTiles> mTiles;
  std::uint8_t mStartR = 0;
  std::uint8_t mStartC = 0;
  std::uint8_t mStartFx = 0;
  std::uint8_t mStartFy = 0;
  bool mStartFieldSet = false;
  std::vector<Step> mSourcePlaces;  // of the areas that the picture shows, in areas from the start field's
  std::vector<Source> mShown;       // their states when it was drawn, in the same order; empty before that
  std::uint8_t mShownDarkness = 0;
  bool mIsBlackNext = false;
  SurfacePtr mGroundSurface;
};

}  // namespace tolva
