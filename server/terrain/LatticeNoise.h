#pragma once

#include <cstdint>

#include "protocol/WorldPoint.h"
#include "server/terrain/Chance.h"

namespace tolva {

// Smooth noise over the plane, without a seam where the plane wraps. The same bits on every machine: nothing but
// additions and products of doubles.
class LatticeNoise {
 public:
  // Hills and hollows of about `cell` fields, with `octaves` layers of which each is half as wide and half as high as
  // the one before. The finest cell must divide kRegionFields, or the lattice would not close around the plane.
  LatticeNoise(std::uint64_t seed, int cell, int octaves);

  // About -1 to 1, around 0.
  double At(WorldPoint point) const;

 private:
  std::uint64_t mSeed;
  int mCell;
  int mOctaves;
};

}  // namespace tolva
