#pragma once

#include <cstdint>
#include <memory>

#include "protocol/FieldPosition.h"
#include "server/terrain/AreaContent.h"
#include "server/terrain/TerrainLevels.h"
#include "server/terrain/Vegetation.h"

namespace tolva {

// Computes the content of areas from a seed.
class AreaPainter {
 public:
  explicit AreaPainter(std::uint64_t seed);

  // The area's level does not matter.
  std::shared_ptr<const AreaContent> Paint(const AreaPosition& area) const;

 private:
  std::uint64_t mSeed;
  TerrainNoises mTerrain;
  Vegetation mVegetation;
};

}  // namespace tolva
