#include "display/GameDisplayRect.h"

#include <algorithm>
#include <utility>

#include "display/FieldTiles.h"
#include "display/GroundTiles.h"
#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "media/GameGraphics.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "world/Repository.h"

namespace tolva {
namespace {

constexpr char kModule[] = "GameDisplayRect";

// One more than fits, because the outermost tiles lie half outside.
constexpr int kRows = GameDisplayRect::kTiles + 1;
constexpr int kColumns = GameDisplayRect::kTiles + 1;

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

void Check(bool succeeded) { CheckSdl(succeeded, kModule, "RebuildGroundSurface"); }

}  // namespace

// The tile as it stands behind the field that was painted last. Only pictures that do not cover a tile let it show
// through, so it is composed when one of them comes.
struct GameDisplayRect::LastTile {
  SDL_Surface* frame;
  SurfacePtr tile;
  const Field* notComposed = nullptr;  // painted since then; null for none
};

GameDisplayRect::GameDisplayRect(GameGraphics* graphics, Repository* repository, InfoHandler* infoHandler,
                                 std::shared_ptr<GroundTiles> tiles)
    : mRepository(repository),
      mInfoHandler(infoHandler),
      mGraphics(graphics),
      mTiles(tiles != nullptr ? std::move(tiles) : std::make_shared<GroundTiles>(*graphics)) {
  Guard(kModule, "GameDisplayRect", [&] {
    mGroundSurface = CheckSurface(MakeDisplaySurface({kWidth, kHeight}, *SDL_GetVideoSurface()), kModule, kModule);
    CheckSdl(Fill(*mGroundSurface, kBlack), kModule, kModule);
  });
}

GameDisplayRect::~GameDisplayRect() = default;

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

void GameDisplayRect::Reset() {
  ClearStartField();
  Invalidate();
  mIsBlackNext = true;
}

void GameDisplayRect::Update() {
  Guard(kModule, "Update", [&] {
    // So that a picture left half drawn by an error does not count as current.
    Invalidate();
    if (mIsBlackNext) CheckSdl(Fill(*mGroundSurface, kBlack), kModule, "Update");
    mIsBlackNext = false;
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
    LastTile last{frame, nullptr};
    for (int row = 0; row < kRows; ++row, first = Next(first, Direction::South)) {
      PaintRow(first, last, kTileHeight * row);
    }
  });
}

// Two interlocking rows of fields: `first` and those to the East, and half a tile lower those to the SouthWest of each.
void GameDisplayRect::PaintRow(const Field* first, LastTile& last, int y) {
  const Field* upper = first;
  const Field* lower = Next(first, Direction::SouthWest);
  for (int column = 0; column < kColumns; ++column) {
    const int x = kTileWidth * column;
    PaintField(upper, last, x, y - kTileHeight / 2);
    PaintField(lower, last, x - kTileWidth / 2, y);
    upper = Next(upper, Direction::East);
    lower = Next(lower, Direction::East);
  }
}

void GameDisplayRect::PaintField(const Field* field, LastTile& last, int x, int y) {
  if (field == nullptr) return;
  if (const Sprite* tile = mTiles->Find(*field)) {
    last.notComposed = field;
    return Check(tile->CopyWhole(*mGroundSurface, x, y));
  }
  if (last.tile == nullptr) last.tile = CheckSurface(CopyForDisplay(*last.frame), kModule, "RebuildGroundSurface");
  if (last.notComposed != nullptr) mTiles->Compose(*last.notComposed, last.tile.get());
  last.notComposed = nullptr;
  mTiles->Compose(*field, last.tile.get());
  Check(CopyWhole(last.tile.get(), mGroundSurface.get(), x, y));
}

void GameDisplayRect::SmoothTrans(const Field& field, SDL_Surface* tile) { mTiles->Blend(field, tile); }

void GameDisplayRect::Blit(SDL_Surface* target, std::int16_t x, std::int16_t y) {
  Guard(kModule, "Blit", [&] { CheckSdl(CopyWhole(mGroundSurface.get(), target, x, y), kModule, "Blit"); });
}

const Field* GameDisplayRect::FindStartField() const {
  const Area* area = mRepository->GetMap().GetAreaAt(mStartR, mStartC);
  return area == nullptr ? nullptr : area->GetField(mStartFx, mStartFy);
}

void GameDisplayRect::Log(const char* text, InfoLevel level) { mInfoHandler->HandleInfo(new Info(text, level)); }

}  // namespace tolva
