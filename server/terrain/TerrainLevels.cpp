#include "server/terrain/TerrainLevels.h"

#include <algorithm>
#include <optional>

namespace tolva {
namespace {

// The heights of noises are about -1 to 1; all other numbers are fields, along the ground or from the coast.

constexpr double kOpenSea = -60;     // the coast's distance where there is no island
constexpr double kCoastHeight = 17;  // how far the coast's noise moves it
constexpr double kCoastEndsAtSea = -45;
constexpr double kCoastEndsInland = 50;
constexpr double kIsletsEndInland = 2;
constexpr double kIsletHeight = 26;
constexpr double kIsletsBegin = 0.62;
constexpr double kInletHeight = 2.5;

constexpr double kDeepEnds = -7;
constexpr double kShallowEnds = 0;
constexpr double kSandEnds = 4.5;
constexpr double kHillsBegin = 9;
constexpr double kRockHill = 0.66;
constexpr double kSnowBegins = 15;
constexpr double kSnowHill = 1.8;
constexpr double kPondsBegin = 14;
constexpr double kPondHeight = 0.6;
constexpr double kPondMaxHill = 0.35;
constexpr double kFlatHill = -0.3;
constexpr double kFlatPond = 0;

constexpr double kNoRoad = 99;        // farther than any road changes the ground
constexpr double kRoadReach = 12;     // as far as the widest road does
constexpr double kRidgeWidth = 3.4;   // of the sand that carries a road across the sea, on each side
constexpr double kRidgeHeight = 3.5;  // how far the ridges' noise widens it
constexpr double kMinRidgeWidth = 2.3;
constexpr double kGrassyRidgeWidth = 5.2;
constexpr double kGrassyRoad = 2.3;
constexpr double kShoalWidth = 5;  // of the shallow water beside a ridge
constexpr double kPassGrass = 2.5;
constexpr double kPassRock = 4.5;

// The level that plans want at a corner; the highest of those of the fields that meet there.
std::optional<Level> GetPlannedLevel(const Landscape& landscape, int x, int y) {
  std::optional<Level> level;
  for (const Plan::Cell* cell : landscape.GetPlannedAtCorner(x, y)) {
    switch (cell->surface) {
      case Surface::Nature:
      case Surface::Open:
        break;
      case Surface::Shallow:
        level = std::max(level, std::optional(Level::Shallow));
        break;
      case Surface::Sand:
        level = std::max(level, std::optional(Level::Sand));
        break;
      default:
        level = Level::Grass;
    }
  }
  return level;
}

double GetInlandOf(const Landscape& landscape, const TerrainNoises& noises, Spot spot, WorldPoint point) {
  double inland = kOpenSea;
  for (const Landscape::Island& island : landscape.GetIslands()) {
    inland = std::max(inland, island.radius - Distance(spot, island.middle));
  }
  // Noise is costly: none where the coast cannot come.
  const bool isInOpenSea = inland < kCoastEndsAtSea;
  if (!isInOpenSea && inland < kCoastEndsInland) inland += kCoastHeight * noises.coast.At(point);
  if (inland < kIsletsEndInland) {
    inland = std::max(inland, kIsletHeight * (noises.islets.At(point) - kIsletsBegin));
  }
  if (isInOpenSea) return inland;
  for (const Landscape::Inlet& inlet : landscape.GetInlets()) {
    const double fromInlet = DistanceToLine(spot, inlet.from, inlet.to) - inlet.radius;
    inland = std::min(inland, fromInlet + kInletHeight * noises.coast.At(point));
  }
  return inland;
}

Level GetNaturalLevel(double inland, double hill, double pond) {
  if (inland < kDeepEnds) return Level::Deep;
  if (inland < kShallowEnds) return Level::Shallow;
  if (inland < kSandEnds) return Level::Sand;
  if (inland > kSnowBegins && hill > kSnowHill) return Level::Snow;
  if (inland > kHillsBegin && hill > kRockHill) return Level::Rock;
  if (inland > kPondsBegin && pond > kPondHeight && hill < kPondMaxHill) return Level::Shallow;
  return Level::Grass;
}

// Roads cross the sea on ridges of sand and the hills through grassy passes.
Level GetLevelByRoad(Level level, double road, double ridge) {
  const double width = kRidgeWidth + kRidgeHeight * ridge;
  if (road < std::max(kMinRidgeWidth, width)) {
    const bool isGrassy = width > kGrassyRidgeWidth && road < kGrassyRoad;
    level = std::max(level, isGrassy ? Level::Grass : Level::Sand);
  }
  if (road < width + kShoalWidth) level = std::max(level, Level::Shallow);
  if (road < kPassGrass) return std::min(level, Level::Grass);
  return road < kPassRock ? std::min(level, Level::Rock) : level;
}

double GetHill(const Landscape& landscape, const TerrainNoises& noises, Spot spot, WorldPoint point) {
  double hill = noises.hills.At(point);
  for (const Landscape::Bias& bias : landscape.GetBiases()) hill += bias.hills * bias.GetStrength(spot);
  return hill;
}

}  // namespace

TerrainNoises::TerrainNoises(std::uint64_t seed)
    : coast(Salted(seed, WorldSalt::Coast), 96, 5),
      islets(Salted(seed, WorldSalt::Islets), 48, 3),
      hills(Salted(seed, WorldSalt::Hills), 96, 4),
      ponds(Salted(seed, WorldSalt::Ponds), 48, 2),
      ridges(Salted(seed, WorldSalt::Ridges), 24, 2) {}

TerrainLevels::TerrainLevels(const TerrainNoises& noises, const Landscape& landscape, WorldPoint firstField) {
  for (int x = -kBorder; x < kSide - kBorder; ++x) {
    for (int y = -kBorder; y < kSide - kBorder; ++y) {
      mCorners[IndexOf(x, y)] = MakeCorner(noises, landscape, firstField, x, y);
    }
  }
  RaiseSlopes();
}

TerrainLevels::Corner TerrainLevels::MakeCorner(const TerrainNoises& noises, const Landscape& landscape,
                                                WorldPoint firstField, int x, int y) {
  const Spot spot = {static_cast<double>(x), static_cast<double>(y)};
  const WorldPoint point = Moved(firstField, x, y);
  double road = kNoRoad;
  for (const Landscape::RoadPiece& piece : landscape.GetRoads()) {
    road = std::min(road, DistanceToLine(spot, piece.from, piece.to));
  }
  const double inland = GetInlandOf(landscape, noises, spot, point);
  if (const std::optional<Level> planned = GetPlannedLevel(landscape, x, y)) return {*planned, road, inland};
  const double hill = inland > kHillsBegin ? GetHill(landscape, noises, spot, point) : kFlatHill;
  const double pond = inland > kPondsBegin ? noises.ponds.At(point) : kFlatPond;
  const Level natural = GetNaturalLevel(inland, hill, pond);
  const Level level = road < kRoadReach ? GetLevelByRoad(natural, road, noises.ridges.At(point)) : natural;
  return {level, road, inland};
}

// One pass over the square and one back reach all corners.
void TerrainLevels::RaiseSlopes() {
  using enum Direction;
  constexpr int kFirst = -kBorder;
  constexpr int kLast = kSide - kBorder - 1;
  for (int x = kFirst; x <= kLast; ++x) {
    for (int y = kFirst; y <= kLast; ++y) {
      for (const Direction visited : {West, NorthWest, North, SouthWest}) RaiseToward(x, y, visited);
    }
  }
  for (int x = kLast; x >= kFirst; --x) {
    for (int y = kLast; y >= kFirst; --y) {
      for (const Direction visited : {East, SouthEast, South, NorthEast}) RaiseToward(x, y, visited);
    }
  }
}

void TerrainLevels::RaiseToward(int x, int y, Direction direction) {
  const auto isInside = [](int coordinate) { return coordinate >= -kBorder && coordinate < kSide - kBorder; };
  const Step step = StepIn(direction);
  if (!isInside(x + step.x) || !isInside(y + step.y)) return;
  const int below = static_cast<int>(GetLevel(x + step.x, y + step.y)) - 1;
  Level& level = mCorners[IndexOf(x, y)].level;
  level = static_cast<Level>(std::max(static_cast<int>(level), below));
}

}  // namespace tolva
