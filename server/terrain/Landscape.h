#pragma once

#include <vector>

#include "server/terrain/LatticeNoise.h"
#include "server/terrain/Plan.h"
#include "server/terrain/Settlements.h"

namespace tolva {

// Region and middle of the square of the arrival village.
constexpr std::uint32_t kHomeRegion = 1000;
constexpr WorldPoint kHome = {std::int64_t{kHomeRegion} * kRegionFields + kRegionFields / 2,
                              std::int64_t{kHomeRegion} * kRegionFields + kRegionFields / 2};
// Places of the arrival island, from the village's square.
constexpr PlanOffset kGlade = {-42, -24};
constexpr PlanOffset kSummit = {-27, 32};
constexpr PlanOffset kFarHamlet = {22, -50};
constexpr PlanOffset kHayMeadow = {26, 40};
constexpr PlanOffset kFarm = {-28, -48};

// A place near an area, in fields from the western corner of the area's first field: small numbers, on whichever side
// of the world's wrap the area lies.
struct Spot {
  double x = 0;
  double y = 0;
};

// The great plan of the world near one area: islands, the roads that join them, and the places composed by hand.
// Every region has an island around its middle; roads, on ridges of sand where they cross the sea, lead to the islands
// of neighbour regions.
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
  // Where hills, or woods, are higher or lower than chance has them; fading out towards `radius`.
  struct Mood {
    Spot middle;
    double radius;
    double hills;
    double woods;

    // 1 in the middle, 0 outside.
    double GetStrength(Spot spot) const;
  };
  struct Site {
    const Plan* plan;
    // The field at the plan's origin, from the area's first field.
    int x;
    int y;
  };

  Landscape(std::uint64_t seed, const AreaPosition& area);

  const std::vector<Island>& GetIslands() const { return mIslands; }
  const std::vector<Inlet>& GetInlets() const { return mInlets; }
  const std::vector<RoadPiece>& GetRoads() const { return mRoads; }
  const std::vector<Mood>& GetMoods() const { return mMoods; }

  // What a plan wants of the field (x, y), counted from the area's first; an untouched one where there is no plan.
  const Plan::Cell& GetPlanned(int x, int y) const;

 private:
  struct Region;

  Region RegionAt(int stepX, int stepY) const;
  void AddRegion(const Region& region);
  void AddCapes(const Region& region);
  void AddHome(const Region& region);
  void AddLink(const Region& from, const Region& to, bool alongX);
  void AddRoad(Spot from, Spot to);
  void AddSite(const Plan& plan, Spot origin);

  std::uint64_t mSeed;
  AreaPosition mArea;
  WorldPoint mFirstField;
  LatticeNoise mBend;
  std::vector<Island> mIslands;
  std::vector<Inlet> mInlets;
  std::vector<RoadPiece> mRoads;
  std::vector<Mood> mMoods;
  std::vector<Site> mSites;
};

// The distance of the point from the line between the two spots.
double DistanceToLine(Spot point, Spot from, Spot to);
double Distance(Spot a, Spot b);

}  // namespace tolva
