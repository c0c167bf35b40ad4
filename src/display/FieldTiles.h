#pragma once

#include "world/Field.h"
#include "world/TileSize.h"

namespace tolva {

// The neighbour, or null where the map ends: a walk that leaves the map goes on over nothing.
inline const Field* Next(const Field* field, Direction direction) {
  return field == nullptr ? nullptr : field->GetNeighbor(direction);
}

}  // namespace tolva
