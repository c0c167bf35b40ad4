#pragma once

#include "server/terrain/Plan.h"

namespace tolva {

// A number of fields along each axis.
struct PlanOffset {
  int x;
  int y;
};

// The places of the world that are composed by hand. Each plan lives as long as the program.

// The arrival village; its origin is the middle of its square. Streets leave it at the kVillage gates below; its
// waterfront lies to the south-east.
const Plan& GetVillagePlan();
constexpr PlanOffset kVillageNorthEastGate = {6, 21};
constexpr PlanOffset kVillageNorthWestGate = {-26, 0};
constexpr PlanOffset kVillageSouthWestGate = {-6, -18};
// The ends of the harbor's three piers.
constexpr PlanOffset kVillagePierEnds[] = {{27, 0}, {23, -8}, {22, 8}};

// Four streets leave a hamlet, each kHamletGate fields from its middle.
const Plan& GetHamletPlan();
constexpr int kHamletGate = 11;

// A lane leads along x through a farm, from one gate to the other, each kFarmGate fields from its middle.
const Plan& GetFarmPlan();
constexpr int kFarmGate = 11;

// Roads enter these from any side.
const Plan& GetGladePlan();
const Plan& GetSummitPlan();
const Plan& GetCrossroadsPlan();

const Plan& GetHayMeadowPlan();

}  // namespace tolva
