#pragma once

#include <cstdint>

#include "protocol/WorldPoint.h"
#include "server/terrain/Chance.h"
#include "server/terrain/Salts.h"

namespace tolva {

// Gradient noise over the world, without a seam where the world wraps around. It only adds and multiplies doubles, so
// that every machine computes the same bits.
class GradientNoise {
 public:
  // Hills and hollows about `cell` fields wide, in `octaves` layers, each half as wide and half as high as the one
  // before. The finest cell must divide kRegionFields, or the lattice would not close around the world.
  GradientNoise(std::uint64_t seed, int cell, int octaves) : mSeed(MixBits(seed)), mCell(cell), mOctaves(octaves) {}

  // About -1 to 1, around 0.
  double At(WorldPoint point) const;

 private:
  std::uint64_t mSeed;
  int mCell;
  int mOctaves;
};

}  // namespace tolva
