#pragma once

#include "world/Field.h"

namespace tolva {

// Pixels of the diamond that a field is on the screen: one step East, or one South, leads one on.
constexpr int kTileWidth = 76;
constexpr int kTileHeight = 36;

// The neighbour, or null where the map ends: a walk that leaves the map goes on over nothing.
inline const Field* Next(const Field* field, Direction direction) {
  return field == nullptr ? nullptr : field->GetNeighbor(direction);
}

}  // namespace tolva
