#pragma once

#include <optional>
#include <vector>

#include "server/realm/Crowd.h"

namespace tolva {

// Where somebody can appear in the world: the square of the arrival village, and the fields around it.
class ArrivalFields {
 public:
  // Looks for at least `count` fields that can be walked to from the square. The crowd must outlive the fields.
  ArrivalFields(Crowd& crowd, std::size_t count);

  // The best first, all of them distinct and walkable. Fewer than `count` when the island is too small.
  const std::vector<WorldPoint>& GetAll() const { return mFields; }
  // How many of them, from the first, belong to the square, which should be kept free; at least 1.
  std::size_t GetSquareSize() const { return mSquareSize; }

  // The best free field.
  std::optional<WorldPoint> FindFree() const;
  // The point itself when it is free, else a free field a few steps away.
  std::optional<WorldPoint> FindFreeNear(WorldPoint point) const;

 private:
  Crowd& mCrowd;
  std::vector<WorldPoint> mFields;
  std::size_t mSquareSize;
};

}  // namespace tolva
