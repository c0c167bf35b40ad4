#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include <SDL.h>

#include "protocol/Direction.h"
#include "sdl/Sprite.h"

namespace tolva {

class Field;
class GameGraphics;

// The tile of each field's ground, whose edges are blended with the ground of its neighbors. Most fields have none to
// be blended: theirs is the picture of the ground itself. The others' are composed once and kept for all fields with
// the same ground around them, which makes a map full of soft edges four times as fast to draw again.
//
// Whoever calls it holds the repository's lock. Display thread only.
class GroundTiles {
 public:
  // `graphics` stays the caller's and must outlive the tiles.
  explicit GroundTiles(GameGraphics& graphics) : mGraphics(graphics) {}

  // The tile at the present darkness, valid until the next call. Null for ground whose picture is missing or differs
  // from a tile in size, format or color key: what such a field shows depends on what was composed before it.
  const Sprite* Find(const Field& field);

  // Forgets the blended tiles: the next Find composes them again.
  void Clear() { mBlended.clear(); }

  // Lays the ground of the field over `tile`, which must have the size and the format of a tile, and blends its edges.
  // A missing picture changes nothing but the edges.
  void Compose(const Field& field, SDL_Surface* tile);
  // Blends the edges of `tile`, which shows the ground of `field`, with the ground of its four neighbors where that
  // differs. Leaves out neighbors whose picture has another size or format than the tile.
  void Blend(const Field& field, SDL_Surface* tile);

 private:
  struct Edge {
    Direction direction;
    std::uint32_t ground;
    SDL_Surface* picture;
    std::uint8_t width;  // 0 for one that is not blended
  };
  using Edges = std::array<Edge, 4>;
  // The field's ground, then the neighbor's ground and the width of each edge.
  using Key = std::array<std::uint64_t, 5>;
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };

  Edges FindEdges(const Field& field, const SDL_Surface& tile);
  const Sprite& FindBlended(const Field& field, const Edges& edges, SDL_Surface& frame);

  GameGraphics& mGraphics;
  std::unordered_map<Key, Sprite, KeyHash> mBlended;
  std::uint8_t mDarkness = 0;  // of the blended ones
};

}  // namespace tolva
