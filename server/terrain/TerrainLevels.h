#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "server/terrain/Landscape.h"

namespace tolva {

// What the ground is at a corner of fields, from the sea's bottom to the summits. Neighbour corners differ by one step
// at most, so no field has more than two kinds and each pair has its painted transition.
enum class Level : std::int8_t { Deep, Shallow, Sand, Grass, Rock, Snow };

// The seeded noises that landscapes are made from.
struct TerrainNoises {
  explicit TerrainNoises(std::uint64_t seed);

  LatticeNoise coast;
  LatticeNoise islets;
  LatticeNoise hills;
  LatticeNoise ponds;
  LatticeNoise ridges;
};

// The corners in and around one area.
class TerrainLevels {
 public:
  // Fields around the area that are known too: who asks what lies beside the neighbour of a neighbour needs them.
  static constexpr int kMargin = 3;

  TerrainLevels(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField);

  // The western corner of field (x, y), counted from the area's first: -kMargin to kAreaEdge + kMargin.
  Level GetLevel(int x, int y) const { return static_cast<Level>(mCorners[IndexOf(x, y)].level); }
  // How far from the nearest road the corner is, in fields.
  double GetRoadDistance(int x, int y) const { return mCorners[IndexOf(x, y)].road; }
  // How far from the coast, in fields; below zero in the sea.
  double GetInland(int x, int y) const { return mCorners[IndexOf(x, y)].inland; }

 private:
  struct Corner {
    int level;
    double road;
    double inland;
  };
  // A level reaches as far as there are levels below it.
  static constexpr int kSpread = 5;
  static constexpr int kBorder = kMargin + kSpread;
  static constexpr int kSide = static_cast<int>(kAreaEdge) + 1 + 2 * kBorder;

  static constexpr std::size_t IndexOf(int x, int y) {
    return static_cast<std::size_t>(x + kBorder) * kSide + static_cast<std::size_t>(y + kBorder);
  }
  Corner MakeCorner(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField, int x, int y) const;
  void RaiseSlopes();

  std::array<Corner, static_cast<std::size_t>(kSide) * kSide> mCorners;
};

}  // namespace tolva
