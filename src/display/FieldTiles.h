#pragma once

#include "world/Field.h"
#include "world/TileSize.h"

namespace tolva {

// The picture of a tile includes the lower corner, which is the upper corner of the tile in the South.
constexpr int kTilePictureHeight = kTileHeight + 1;

// The neighbor, or null where the map ends, so that a walk can leave the map.
inline const Field* Next(const Field* field, Direction direction) {
  return field == nullptr ? nullptr : field->GetNeighbor(direction);
}

}  // namespace tolva
