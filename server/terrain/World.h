#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <unordered_map>

#include "protocol/WorldPoint.h"
#include "server/terrain/AreaPainter.h"

namespace tolva {

// An endless sea of islands, computed from a seed and coordinates alone: the same seed gives the same world in every
// run and on every machine. Where region numbers wrap around, the world goes on without a seam. All levels look alike.
// Caches the areas used last. For one thread.
class World {
 public:
  explicit World(std::uint64_t seed) : mPainter(seed) {}

  // The content of an area whose numbers are in range (see IsInRange in protocol/FieldPosition.h).
  std::shared_ptr<const AreaContent> GetArea(const AreaPosition& area);
  // Whether a character could stand there; false for numbers out of range.
  bool IsWalkable(const FieldPosition& field);

 private:
  struct Entry {
    WorldPoint firstField;
    std::shared_ptr<const AreaContent> content;
  };

  AreaPainter mPainter;
  // The area used last comes first.
  std::list<Entry> mRecent;
  // By first field.
  std::unordered_map<WorldPoint, std::list<Entry>::iterator, WorldPointHash> mKnown;
};

}  // namespace tolva
