#include "plain/Ground.h"

#include "display/FieldTiles.h"
#include "display/TileBlend.h"
#include "plain/Copy.h"
#include "sdl/PixelLock.h"
#include "sdl/Surface.h"

namespace tolva::plain {
namespace {

constexpr int kEdge = GroundGrid::kEdge;
constexpr int kTiles = GameDisplayRect::kTiles;

bool IsSameGround(const Field& a, const Field& b) { return a.GetGroundId() >> 4 == b.GetGroundId() >> 4; }

void LayOver(SDL_Surface* picture, SDL_Surface* target, int x, int y) {
  if (picture != nullptr) CopyWhole(picture, target, x, y);
}

}  // namespace

Ground::Ground(GameGraphics& graphics, Repository& repository) : mGraphics(graphics), mRepository(repository) {
  for (auto& column : mPictures) {
    for (SurfacePtr& picture : column) {
      picture = MakeDisplaySurface({GameDisplayRect::kWidth, GameDisplayRect::kHeight}, *SDL_GetVideoSurface());
      Fill(*picture, kBlack);
    }
  }
}

void Ground::DrawAll() {
  for (int i = 0; i < kEdge; ++i) DrawEdges(i, -1);
}

void Ground::DrawEdges(int i, int j) {
  for (int k = 0; k < kEdge; ++k) {
    if (i >= 0) Draw(i, k);
    if (j >= 0 && k != i) Draw(k, j);
  }
}

Ground::Start Ground::FindStart(int i, int j) {
  // From rectangle to rectangle it is kTiles steps East or South. In fields from field (0, 0) of the map's first area.
  const int right = i - kEdge / 2;
  const int down = j - kEdge / 2;
  const int x = kMapCenter * kAreaEdge + kTiles * (right + down);
  const int y = kMapCenter * kAreaEdge + kTiles * (1 + right - down);
  const auto byte = [](int number) { return static_cast<std::uint8_t>(number); };
  return {byte(x / kAreaEdge), byte(y / kAreaEdge), byte(x % kAreaEdge), byte(y % kAreaEdge)};
}

void Ground::Draw(int i, int j) {
  const Start start = FindStart(i, j);
  const Field* first = mRepository.GetMap().GetAreaAt(start.r, start.c)->GetField(start.fx, start.fy);
  SDL_Surface* frame = mGraphics.FindGraphic(kDefaultGroundId);
  if (frame == nullptr) return;
  const SurfacePtr tile = CopyForDisplay(*frame);
  SDL_Surface& picture = GetPicture(i, j);
  for (int row = 0; row <= kTiles; ++row, first = Next(first, Direction::South)) {
    const Field* upper = first;
    const Field* lower = Next(first, Direction::SouthWest);
    for (int column = 0; column <= kTiles; ++column) {
      PaintField(upper, tile.get(), picture, kTileWidth * column, kTileHeight * row - kTileHeight / 2);
      PaintField(lower, tile.get(), picture, kTileWidth * column - kTileWidth / 2, kTileHeight * row);
      upper = Next(upper, Direction::East);
      lower = Next(lower, Direction::East);
    }
  }
}

void Ground::PaintField(const Field* field, SDL_Surface* tile, SDL_Surface& picture, int x, int y) {
  if (field == nullptr) return;
  LayOver(mGraphics.FindGraphic(field->GetGroundId()), tile, 0, 0);
  LayOver(mGraphics.FindMask(field->GetGroundId()), tile, 0, 0);
  SmoothTrans(*field, tile);
  LayOver(tile, &picture, x, y);
}

void Ground::SmoothTrans(const Field& field, SDL_Surface* tile) {
  for (const Direction direction :
       {Direction::NorthEast, Direction::SouthEast, Direction::SouthWest, Direction::NorthWest}) {
    const Field* neighbor = field.GetNeighbor(direction);
    if (neighbor == nullptr || IsSameGround(field, *neighbor)) continue;
    const auto width = static_cast<std::uint8_t>((field.GetSmoothness() + neighbor->GetSmoothness()) / 2);
    if (width == 0) continue;
    SDL_Surface* picture = mGraphics.FindGraphic(neighbor->GetGroundId());
    if (picture == nullptr || !tile_blend::HaveSameShape(*tile, *picture)) continue;
    const PixelLock lockedTile(tile, "Ground", "SmoothTrans");
    const PixelLock lockedPicture(picture, "Ground", "SmoothTrans");
    tile_blend::BlendEdge(*tile, *picture, direction, width);
  }
}

void Ground::Blit(SDL_Surface& window, int left, int top) {
  for (int i = 0; i < kEdge; ++i) {
    for (int j = 0; j < kEdge; ++j) {
      CopyWhole(&GetPicture(i, j), &window, left + GameDisplayRect::kWidth * i, top + GameDisplayRect::kHeight * j);
    }
  }
}

}  // namespace tolva::plain
