#include "display/GameDisplayRect.h"

#include <algorithm>

#include "display/FieldTiles.h"
#include "display/TileBlend.h"
#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "media/GameGraphics.h"
#include "sdl/Copy.h"
#include "sdl/PixelLock.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "world/Repository.h"

namespace tolva {
namespace {

constexpr char kModule[] = "GameDisplayRect";

// One more than fits, because the outermost tiles lie half outside.
constexpr int kRows = GameDisplayRect::kTiles + 1;
constexpr int kColumns = GameDisplayRect::kTiles + 1;

// Ids that differ only in the lowest bits are variants of one ground.
constexpr int kVariantBits = 4;
bool IsSameGround(const Field& a, const Field& b) {
  return a.GetGroundId() >> kVariantBits == b.GetGroundId() >> kVariantBits;
}

// The areas that a picture shows whose start field is (fx, fy), including those that it only blends with. In areas from
// the start field's.
std::vector<Step> FindSourcePlaces(int fx, int fy) {
  constexpr Step kTouched[] = {{0, 0}, {0, 1}, {1, 0}, {0, -1}, {-1, 0}};
  const auto areaOf = [](int field) { return (field + kAreaEdge) / kAreaEdge - 1; };
  std::vector<Step> places;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      for (const int lower : {0, 1}) {
        for (const Step& touched : kTouched) {
          const Step place{areaOf(fx + column + row + touched.x), areaOf(fy + column - row - lower + touched.y)};
          if (std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
        }
      }
    }
  }
  return places;
}

// Without a picture nothing changes.
void LayOver(SDL_Surface* picture, SDL_Surface* target, int x, int y) {
  if (picture != nullptr) CheckSdl(CopyWhole(picture, target, x, y), kModule, "RebuildGroundSurface");
}

}  // namespace

GameDisplayRect::GameDisplayRect(GameGraphics* graphics, Repository* repository, InfoHandler* infoHandler)
    : mRepository(repository), mInfoHandler(infoHandler), mGraphics(graphics) {
  Guard(kModule, "GameDisplayRect", [&] {
    mGroundSurface = CheckSurface(MakeDisplaySurface({kWidth, kHeight}, *SDL_GetVideoSurface()), kModule, kModule);
    CheckSdl(Fill(*mGroundSurface, kBlack), kModule, kModule);
  });
}

void GameDisplayRect::SetStartField(std::uint8_t r, std::uint8_t c, std::uint8_t fx, std::uint8_t fy) {
  if (mSourcePlaces.empty() || fx != mStartFx || fy != mStartFy) {
    mSourcePlaces = FindSourcePlaces(fx, fy);
    mShown.clear();
  }
  mStartR = r;
  mStartC = c;
  mStartFx = fx;
  mStartFy = fy;
  mStartFieldSet = true;
}

void GameDisplayRect::Update() {
  Guard(kModule, "Update", [&] {
    // So that a picture left half drawn by an error does not count as current.
    mShown.clear();
    RebuildGroundSurface();
    NoteShown();
  });
}

bool GameDisplayRect::IsCurrent() const {
  return mShownDarkness == mGraphics->GetDarkness() &&
         std::equal(mShown.begin(), mShown.end(), mSourcePlaces.begin(), mSourcePlaces.end(),
                    [this](const Source& shown, Step place) { return shown == FindSource(place); });
}

void GameDisplayRect::NoteShown() {
  mShownDarkness = mGraphics->GetDarkness();
  for (const Step& place : mSourcePlaces) mShown.push_back(FindSource(place));
}

// Areas that have no ground yet share state 0; the position tells them apart.
bool GameDisplayRect::Source::operator==(const Source& other) const {
  return exists == other.exists && groundState == other.groundState && IsSameArea(position, other.position);
}

GameDisplayRect::Source GameDisplayRect::FindSource(Step fromStart) const {
  // Below 0 the number wraps around to one that the map does not have either.
  const Area* area = mRepository->GetMap().GetAreaAt(static_cast<std::uint8_t>(mStartR + fromStart.x),
                                                     static_cast<std::uint8_t>(mStartC + fromStart.y));
  return area == nullptr ? Source{} : Source{true, area->GetPosition(), area->GetGroundState()};
}

void GameDisplayRect::RebuildGroundSurface() {
  Guard(kModule, "RebuildGroundSurface", [&] {
    Log("Updating ground surface", InfoLevel::Detail);
    if (!mStartFieldSet) return Log("Startfield not set (GameDisplayRect - RebuildGroundSurface)", InfoLevel::Failure);
    const Field* first = FindStartField();
    if (first == nullptr) {
      return Log("Startfield is NULL (GameDisplayRect - RebuildGroundSurface)", InfoLevel::Failure);
    }
    SDL_Surface* frame = mGraphics->FindGraphic(kDefaultGroundId);
    if (frame == nullptr) return;
    const SurfacePtr tile = CheckSurface(CopyForDisplay(*frame), kModule, "RebuildGroundSurface");
    for (int row = 0; row < kRows; ++row, first = Next(first, Direction::South)) {
      PaintRow(first, tile.get(), kTileHeight * row);
    }
  });
}

// Two interlocking rows of fields: `first` and those to the East, and half a tile lower those to the SouthWest of each.
void GameDisplayRect::PaintRow(const Field* first, SDL_Surface* tile, int y) {
  const Field* upper = first;
  const Field* lower = Next(first, Direction::SouthWest);
  for (int column = 0; column < kColumns; ++column) {
    const int x = kTileWidth * column;
    PaintField(upper, tile, x, y - kTileHeight / 2);
    PaintField(lower, tile, x - kTileWidth / 2, y);
    upper = Next(upper, Direction::East);
    lower = Next(lower, Direction::East);
  }
}

void GameDisplayRect::PaintField(const Field* field, SDL_Surface* tile, int x, int y) {
  if (field == nullptr) return;
  LayOver(mGraphics->FindGraphic(field->GetGroundId()), tile, 0, 0);
  LayOver(mGraphics->FindMask(field->GetGroundId()), tile, 0, 0);
  SmoothTrans(*field, tile);
  LayOver(tile, mGroundSurface.get(), x, y);
}

void GameDisplayRect::SmoothTrans(const Field& field, SDL_Surface* tile) {
  Guard(kModule, "SmoothTrans", [&] {
    for (const Direction direction :
         {Direction::NorthEast, Direction::SouthEast, Direction::SouthWest, Direction::NorthWest}) {
      const Field* neighbor = field.GetNeighbor(direction);
      if (neighbor == nullptr || IsSameGround(field, *neighbor)) continue;
      const auto width = static_cast<std::uint8_t>((field.GetSmoothness() + neighbor->GetSmoothness()) / 2);
      if (width == 0) continue;
      SDL_Surface* picture = mGraphics->FindGraphic(neighbor->GetGroundId());
      if (picture == nullptr || !tile_blend::HaveSameShape(*tile, *picture)) continue;
      const PixelLock lockedTile(tile, "ScreenGame", "SmoothTrans: failed to lock result surface");
      const PixelLock lockedPicture(picture, "ScreenGame", "SmoothTrans: failed to lock temporary surface");
      tile_blend::BlendEdge(*tile, *picture, direction, width);
    }
  });
}

void GameDisplayRect::Blit(SDL_Surface* target, std::int16_t x, std::int16_t y) {
  Guard(kModule, "Blit", [&] { CheckSdl(CopyWhole(mGroundSurface.get(), target, x, y), kModule, "Blit"); });
}

const Field* GameDisplayRect::FindStartField() const {
  const Area* area = mRepository->GetMap().GetAreaAt(mStartR, mStartC);
  return area == nullptr ? nullptr : area->GetField(mStartFx, mStartFy);
}

void GameDisplayRect::Log(const char* text, InfoLevel level) { mInfoHandler->HandleInfo(new Info(text, level)); }

}  // namespace tolva
