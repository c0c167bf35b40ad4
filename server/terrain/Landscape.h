#pragma once

#include <array>
#include <vector>

#include "server/terrain/GradientNoise.h"
#include "server/terrain/Plan.h"
#include "server/terrain/Settlements.h"

namespace tolva {

// A place near an area, in fields from the western corner of the area's first field: small numbers, also where the
// world wraps around.
struct Spot {
  double x = 0;
  double y = 0;
};

struct Composition;

// What the world has near one area: islands, the roads that join them, and the places composed by hand. Every region
// has an island around its middle; roads, on ridges of sand where they cross the sea, lead to the islands of
// neighboring regions.
class Landscape {
 public:
  struct Island {
    Spot middle;
    double radius;
  };
  // Water that cuts into an island, as far as `radius` from a line.
  struct Inlet {
    Spot from;
    Spot to;
    double radius;
  };
  // A straight piece of a road.
  struct RoadPiece {
    Spot from;
    Spot to;
  };
  // Added to the noises of hills and woods around a place, fading out toward `radius`.
  struct Bias {
    Spot middle;
    double radius;
    double hills;
    double woods;

    // 1 in the middle, 0 outside.
    double GetStrength(Spot spot) const;
  };

  Landscape(std::uint64_t seed, const AreaPosition& area);

  const std::vector<Island>& GetIslands() const { return mIslands; }
  const std::vector<Inlet>& GetInlets() const { return mInlets; }
  const std::vector<RoadPiece>& GetRoads() const { return mRoads; }
  const std::vector<Bias>& GetBiases() const { return mBiases; }

  // What a plan wants of the field (x, y), counted from the area's first; an untouched cell where there is no plan.
  const Plan::Cell& GetPlanned(int x, int y) const;
  // The same of the four fields that meet at the western corner of (x, y). Never null.
  std::array<const Plan::Cell*, 4> GetPlannedAtCorner(int x, int y) const;

 private:
  struct Region;
  // A plan in the world; the field at the plan's origin is counted from the area's first.
  struct Site {
    const Plan* plan;
    int x;
    int y;
  };

  Region MakeRegion(int stepX, int stepY) const;
  void AddRegion(const Region& region);
  void AddCapes(const Region& region);
  void AddHome(const Region& region);
  void AddFarm(const Region& region);
  // The road to the neighbor region in `direction`, SouthEast or NorthEast, if there is one.
  void AddLink(const Region& from, const Region& to, Direction direction);
  void AddRoad(Spot from, Spot to);
  void AddComposition(const Composition& composition, Spot origin);
  void AddSite(const Plan& plan, Spot origin);

  std::uint64_t mSeed;
  AreaPosition mArea;
  WorldPoint mFirstField;
  GradientNoise mBend;
  std::vector<Island> mIslands;
  std::vector<Inlet> mInlets;
  std::vector<RoadPiece> mRoads;
  std::vector<Bias> mBiases;
  std::vector<Site> mSites;
};

// The distance of the point from the line between the two spots.
double DistanceToLine(Spot point, Spot from, Spot to);
double Distance(Spot a, Spot b);

}  // namespace tolva
