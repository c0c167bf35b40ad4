#include "display/GroundTiles.h"

#include <algorithm>
#include <utility>

#include "display/TileBlend.h"
#include "foundation/Guard.h"
#include "media/GameGraphics.h"
#include "sdl/Copy.h"
#include "sdl/PixelLock.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "world/Field.h"

namespace tolva {
namespace {

constexpr char kModule[] = "GameDisplayRect";
constexpr char kMethod[] = "RebuildGroundSurface";

// About 3 MB. A village and the wood around it have some dozens.
constexpr std::size_t kMaxBlended = 512;

// Ids that differ only in the lowest bits are variants of one ground.
constexpr int kVariantBits = 4;
bool IsSameGround(const Field& a, const Field& b) {
  return a.GetGroundId() >> kVariantBits == b.GetGroundId() >> kVariantBits;
}

// Whether a tile that `picture` has been laid on shows nothing but that picture.
bool CoversTile(const SDL_Surface& picture, const SDL_Surface& tile) {
  const bool hasKey = (picture.flags & SDL_SRCCOLORKEY) != 0;
  return tile_blend::HaveSameShape(tile, picture) && hasKey && (tile.flags & SDL_SRCCOLORKEY) != 0 &&
         picture.format->colorkey == tile.format->colorkey;
}

// Without a picture nothing changes.
void LayOver(SDL_Surface* picture, SDL_Surface* target) {
  if (picture != nullptr) CheckSdl(CopyWhole(picture, target, 0, 0), kModule, kMethod);
}

}  // namespace

std::size_t GroundTiles::KeyHash::operator()(const Key& key) const {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
  std::uint64_t hash = 0;
  for (const std::uint64_t part : key) hash = ((hash ^ part) * kOdd) ^ (hash >> 29);
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

const Sprite* GroundTiles::Find(const Field& field) {
  SDL_Surface* frame = mGraphics.FindGraphic(kDefaultGroundId);
  const Sprite& own = mGraphics.FindSprite(field.GetGroundId());
  if (frame == nullptr || own.GetSurface() == nullptr || !CoversTile(*own.GetSurface(), *frame)) return nullptr;
  const Edges edges = FindEdges(field, *frame);
  const bool isPlain = std::all_of(edges.begin(), edges.end(), [](const Edge& edge) { return edge.width == 0; });
  return isPlain ? &own : &FindBlended(field, edges, *frame);
}

const Sprite& GroundTiles::FindBlended(const Field& field, const Edges& edges, SDL_Surface& frame) {
  if (mDarkness != mGraphics.GetDarkness() || mBlended.size() >= kMaxBlended) mBlended.clear();
  mDarkness = mGraphics.GetDarkness();
  Key key{field.GetGroundId()};
  for (std::size_t i = 0; i < edges.size(); ++i) {
    if (edges[i].width != 0) key[i + 1] = std::uint64_t{edges[i].ground} << 8 | edges[i].width;
  }
  const auto known = mBlended.find(key);
  if (known != mBlended.end()) return known->second;
  SurfacePtr tile = CheckSurface(CopyForDisplay(frame), kModule, kMethod);
  Compose(field, tile.get());
  return mBlended.emplace(key, Sprite(std::move(tile))).first->second;
}

void GroundTiles::Compose(const Field& field, SDL_Surface* tile) {
  LayOver(mGraphics.FindGraphic(field.GetGroundId()), tile);
  LayOver(mGraphics.FindMask(field.GetGroundId()), tile);
  Blend(field, tile);
}

GroundTiles::Edges GroundTiles::FindEdges(const Field& field, const SDL_Surface& tile) {
  Edges edges{{{Direction::NorthEast, 0, nullptr, 0},
               {Direction::SouthEast, 0, nullptr, 0},
               {Direction::SouthWest, 0, nullptr, 0},
               {Direction::NorthWest, 0, nullptr, 0}}};
  for (Edge& edge : edges) {
    const Field* neighbor = field.GetNeighbor(edge.direction);
    if (neighbor == nullptr || IsSameGround(field, *neighbor)) continue;
    const auto width = static_cast<std::uint8_t>((field.GetSmoothness() + neighbor->GetSmoothness()) / 2);
    if (width == 0) continue;
    SDL_Surface* picture = mGraphics.FindGraphic(neighbor->GetGroundId());
    if (picture == nullptr || !tile_blend::HaveSameShape(tile, *picture)) continue;
    edge = {edge.direction, neighbor->GetGroundId(), picture, width};
  }
  return edges;
}

void GroundTiles::Blend(const Field& field, SDL_Surface* tile) {
  Guard(kModule, "SmoothTrans", [&] {
    for (const Edge& edge : FindEdges(field, *tile)) {
      if (edge.width == 0) continue;
      const PixelLock lockedTile(tile, "ScreenGame", "SmoothTrans: failed to lock result surface");
      const PixelLock lockedPicture(edge.picture, "ScreenGame", "SmoothTrans: failed to lock temporary surface");
      tile_blend::BlendEdge(*tile, *edge.picture, edge.direction, edge.width);
    }
  });
}

}  // namespace tolva
