#include "server/terrain/TerrainLevels.h"

#include <algorithm>

namespace tolva {
namespace {

constexpr int kDeep = static_cast<int>(Level::Deep);
constexpr int kShallow = static_cast<int>(Level::Shallow);
constexpr int kSand = static_cast<int>(Level::Sand);
constexpr int kGrass = static_cast<int>(Level::Grass);
constexpr int kRock = static_cast<int>(Level::Rock);
constexpr int kSnow = static_cast<int>(Level::Snow);

// The level that plans want of a corner; -1 where none does. Of the fields that meet there the highest decides.
int GetPlannedLevel(const Landscape& landscape, int x, int y) {
  int level = -1;
  for (int dx = -1; dx <= 0; ++dx) {
    for (int dy = -1; dy <= 0; ++dy) {
      switch (landscape.GetPlanned(x + dx, y + dy).surface) {
        case Surface::Nature:
        case Surface::Open:
          break;
        case Surface::Shallow:
          level = std::max(level, kShallow);
          break;
        case Surface::Sand:
          level = std::max(level, kSand);
          break;
        default:
          level = kGrass;
      }
    }
  }
  return level;
}

double GetInlandOf(const Landscape& landscape, const TerrainNoises& noises, Spot spot, WorldPoint place) {
  double inland = -60;
  for (const Landscape::Island& island : landscape.GetIslands()) {
    inland = std::max(inland, island.radius - Distance(spot, island.middle));
  }
  // Where the coast cannot come, its noise is not worth its time.
  const bool isInTheOpen = inland < -45;
  if (!isInTheOpen && inland < 50) inland += 17 * noises.coast.At(place);
  if (inland < 2) inland = std::max(inland, 26 * (noises.islets.At(place) - 0.62));
  if (isInTheOpen) return inland;
  for (const Landscape::Inlet& inlet : landscape.GetInlets()) {
    const double fromInlet = DistanceToLine(spot, inlet.from, inlet.to) - inlet.radius;
    inland = std::min(inland, fromInlet + 2.5 * noises.coast.At(place));
  }
  return inland;
}

int GetNaturalLevel(double inland, double hill, double pond) {
  if (inland < -7) return kDeep;
  if (inland < 0) return kShallow;
  if (inland < 4.5) return kSand;
  if (inland > 15 && hill > 1.8) return kSnow;
  if (inland > 9 && hill > 0.66) return kRock;
  if (inland > 14 && pond > 0.6 && hill < 0.35) return kShallow;
  return kGrass;
}

// Roads cross the sea on ridges of sand and the hills through grassy passes.
int GetLevelByRoad(int level, double road, double ridge) {
  const double width = 3.4 + 3.5 * ridge;
  if (road < std::max(2.3, width)) level = std::max(level, width > 5.2 && road < 2.3 ? kGrass : kSand);
  if (road < width + 5) level = std::max(level, kShallow);
  if (road < 2.5) return std::min(level, kGrass);
  return road < 4.5 ? std::min(level, kRock) : level;
}

}  // namespace

TerrainNoises::TerrainNoises(std::uint64_t seed)
    : coast(seed + 11, 96, 5),
      islets(seed + 12, 48, 3),
      hills(seed + 13, 96, 4),
      ponds(seed + 14, 48, 2),
      ridges(seed + 15, 24, 2) {}

TerrainLevels::TerrainLevels(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField) {
  for (int x = -kBorder; x < kSide - kBorder; ++x) {
    for (int y = -kBorder; y < kSide - kBorder; ++y) {
      mCorners[IndexOf(x, y)] = MakeCorner(noises, landscape, firstField, x, y);
    }
  }
  RaiseSlopes();
}

TerrainLevels::Corner TerrainLevels::MakeCorner(const TerrainNoises& noises, const Landscape& landscape,
                                                WorldPoint firstField, int x, int y) const {
  const Spot spot = {static_cast<double>(x), static_cast<double>(y)};
  const WorldPoint place = {firstField.x + x, firstField.y + y};
  Corner corner = {kGrass, 99, GetInlandOf(landscape, noises, spot, place)};
  for (const Landscape::RoadPiece& piece : landscape.GetRoads()) {
    corner.road = std::min(corner.road, DistanceToLine(spot, piece.from, piece.to));
  }
  corner.level = GetPlannedLevel(landscape, x, y);
  if (corner.level >= 0) return corner;
  double hill = -0.3;
  if (corner.inland > 9) {
    hill = noises.hills.At(place);
    for (const Landscape::Mood& mood : landscape.GetMoods()) {
      hill += mood.hills * mood.GetStrength(spot);
    }
  }
  const double pond = corner.inland > 14 ? noises.ponds.At(place) : 0;
  corner.level = GetNaturalLevel(corner.inland, hill, pond);
  if (corner.road < 12) corner.level = GetLevelByRoad(corner.level, corner.road, noises.ridges.At(place));
  return corner;
}

// Raises every corner to at least one step below its neighbours: one way over the square and back reaches all.
void TerrainLevels::RaiseSlopes() {
  const auto raise = [&](int x, int y, int fromX, int fromY) {
    int& level = mCorners[IndexOf(x, y)].level;
    level = std::max(level, mCorners[IndexOf(fromX, fromY)].level - 1);
  };
  constexpr int first = -kBorder;
  constexpr int last = kSide - kBorder - 1;
  for (int x = first; x <= last; ++x) {
    for (int y = first; y <= last; ++y) {
      if (x > first && y > first) raise(x, y, x - 1, y - 1);
      if (x > first) raise(x, y, x - 1, y);
      if (x > first && y < last) raise(x, y, x - 1, y + 1);
      if (y > first) raise(x, y, x, y - 1);
    }
  }
  for (int x = last; x >= first; --x) {
    for (int y = last; y >= first; --y) {
      if (x < last && y < last) raise(x, y, x + 1, y + 1);
      if (x < last) raise(x, y, x + 1, y);
      if (x < last && y > first) raise(x, y, x + 1, y - 1);
      if (y < last) raise(x, y, x, y + 1);
    }
  }
}

}  // namespace tolva
