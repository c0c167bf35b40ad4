#pragma once

#include "protocol/WorldPoint.h"
#include "server/terrain/Settlements.h"

namespace tolva {

// The region of the island where players arrive; its number along both axes.
constexpr std::uint32_t kHomeRegion = 1000;

// The middle of the arrival village's square, which is the middle of its region.
constexpr std::int64_t kHomeCoordinate = std::int64_t{kHomeRegion} * kRegionFields + kRegionFields / 2;
constexpr WorldPoint kHome = {kHomeCoordinate, kHomeCoordinate};

// Other places of the island, from the middle of the square.
constexpr PlanOffset kGlade = {-42, -24};
constexpr PlanOffset kSummit = {-27, 32};
constexpr PlanOffset kFarHamlet = {22, -50};
constexpr PlanOffset kHayMeadow = {26, 40};
constexpr PlanOffset kFarm = {-28, -48};

}  // namespace tolva
