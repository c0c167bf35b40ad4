#pragma once

#include <optional>
#include <vector>

#include "server/realm/Crowd.h"

namespace tolva {

// Where somebody can appear in the world.
class ArrivalFields {
 public:
  // Looks for at least `count` fields, from the village's square outwards, which can be walked to from there.
  ArrivalFields(World& world, Crowd& crowd, std::size_t count);

  // The best first. Fewer than asked for when the island is too small.
  const std::vector<WorldPoint>& GetAll() const { return mFields; }
  // How many of them are the square's own, which should be kept free.
  std::size_t GetSquareSize() const { return mSquareSize; }

  // The best free field.
  std::optional<WorldPoint> FindFree() const;
  // The place itself when it is free, else a free field a few steps away.
  std::optional<WorldPoint> FindFreeBy(WorldPoint place) const;

 private:
  Crowd& mCrowd;
  std::vector<WorldPoint> mFields;
  std::size_t mSquareSize;
};

}  // namespace tolva
