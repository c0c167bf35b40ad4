#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "server/terrain/Landscape.h"

namespace tolva {

// What the ground is at a corner of fields, from the bottom of the sea to the summits. Neighboring corners differ by at
// most one level, so no field has more than two kinds of ground, and each pair has its painted transition.
enum class Level : std::int8_t { Deep, Shallow, Sand, Grass, Rock, Snow };

// The seeded noises that landscapes are made from.
struct TerrainNoises {
  explicit TerrainNoises(std::uint64_t seed);

  GradientNoise coast;
  GradientNoise islets;
  GradientNoise hills;
  GradientNoise ponds;
  GradientNoise ridges;
};

// The corners in and around one area.
class TerrainLevels {
 public:
  // Fields around the area whose corners are known too: a painter looks at the neighbors of a neighbor's corners.
  static constexpr int kMargin = 3;

  TerrainLevels(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField);

  // The western corner of field (x, y), counted from the area's first: -kMargin to kAreaEdge + kMargin.
  Level GetLevel(int x, int y) const { return mCorners[IndexOf(x, y)].level; }
  // The distance of the corner from the nearest road, in fields.
  double GetRoadDistance(int x, int y) const { return mCorners[IndexOf(x, y)].road; }
  // The distance of the corner from the coast, in fields; below zero in the sea.
  double GetInland(int x, int y) const { return mCorners[IndexOf(x, y)].inland; }

 private:
  struct Corner {
    Level level;
    double road;
    double inland;
  };
  // How far a corner raises others: one field for each level below the highest.
  static constexpr int kSpread = static_cast<int>(Level::Snow);
  static constexpr int kBorder = kMargin + kSpread;
  static constexpr int kSide = kAreaEdge + 1 + 2 * kBorder;

  static constexpr std::size_t IndexOf(int x, int y) {
    return static_cast<std::size_t>(x + kBorder) * kSide + static_cast<std::size_t>(y + kBorder);
  }
  static Corner MakeCorner(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField, int x,
                           int y);
  void RaiseSlopes();
  // Raises the corner to one level below its neighbor's.
  void RaiseToward(int x, int y, Direction direction);

  std::array<Corner, static_cast<std::size_t>(kSide) * kSide> mCorners;
};

}  // namespace tolva
