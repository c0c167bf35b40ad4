#pragma once

#include "server/terrain/Plan.h"

namespace tolva {

// The places of the world that are composed by hand. Each lives as long as the program.

// The arrival village, by the middle of its square. Streets leave it at the kVillage gates below; its water front lies
// to the south-east.
const Plan& GetVillagePlan();
// Four streets leave a hamlet at kHamletGate fields from its middle.
const Plan& GetHamletPlan();
// A clearing with a campfire, a summit and a crossroads, which roads enter from any side.
const Plan& GetGladePlan();
const Plan& GetSummitPlan();
const Plan& GetCrossroadsPlan();
// A lane leads along x through a farm, from one kFarmGate to the other.
const Plan& GetFarmPlan();
const Plan& GetHayMeadowPlan();

struct PlanOffset {
  int x;
  int y;
};

constexpr PlanOffset kVillageNorthEastGate = {6, 21};
constexpr PlanOffset kVillageNorthWestGate = {-26, 0};
constexpr PlanOffset kVillageSouthWestGate = {-6, -18};
// The ends of the harbour's three piers.
constexpr PlanOffset kVillagePierEnds[] = {{27, 0}, {23, -8}, {22, 8}};
constexpr int kHamletGate = 11;
constexpr int kFarmGate = 11;

}  // namespace tolva
