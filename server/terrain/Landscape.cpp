#include "server/terrain/Landscape.h"

#include <algorithm>
#include <cmath>

namespace tolva {
namespace {

// As far as anything composed reaches into an area: what is farther from it is left out.
constexpr double kReach = 20;
constexpr double kAreaSize = kAreaEdge;
constexpr double kRegionSize = kRegionFields;

// Gives the summit of the arrival island a foot.
constexpr PlanOffset kNorthCape = {-34, 40};

enum class Character { Hamlet, Farm, Glade, Summit, Crossroads };

bool ReachesArea(Spot low, Spot high, double radius) {
  const double reach = radius + kReach;
  return low.x < kAreaSize + reach && low.y < kAreaSize + reach && high.x > -reach && high.y > -reach;
}

Spot Moved(Spot spot, PlanOffset by) { return {spot.x + by.x, spot.y + by.y}; }

}  // namespace

double Distance(Spot a, Spot b) { return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y)); }

double DistanceToLine(Spot point, Spot from, Spot to) {
  const Spot line = {to.x - from.x, to.y - from.y};
  const double length = line.x * line.x + line.y * line.y;
  const double along = length > 0 ? ((point.x - from.x) * line.x + (point.y - from.y) * line.y) / length : 0;
  const double part = std::clamp(along, 0.0, 1.0);
  return Distance(point, {from.x + part * line.x, from.y + part * line.y});
}

double Landscape::Mood::GetStrength(Spot spot) const { return std::max(0.0, 1 - Distance(spot, middle) / radius); }

struct Landscape::Region {
  std::uint32_t rx = 0;
  std::uint32_t ry = 0;
  std::uint64_t hash = 0;
  bool isHome = false;
  Character character = Character::Crossroads;
  Spot middle;
  double radius = 0;

  // Where roads to the neighbour region in the direction (x, y) begin.
  Spot GetGate(PlanOffset direction) const {
    if (isHome) {
      if (direction.x > 0) return Moved(middle, {kFarHamlet.x + kHamletGate, kFarHamlet.y});
      if (direction.x < 0) return Moved(middle, kVillageNorthWestGate);
      return Moved(middle, direction.y > 0 ? kVillageNorthEastGate : kVillageSouthWestGate);
    }
    if (character != Character::Hamlet) return middle;
    return Moved(middle, {direction.x * kHamletGate, direction.y * kHamletGate});
  }
};

Landscape::Landscape(std::uint64_t seed, const AreaPosition& area)
    : mSeed(MixBits(seed)), mArea(area), mFirstField(FirstFieldOf(area)), mBend(mSeed + 1, 48, 2) {
  // Islands, and roads from one to the next, stay within their own regions and those beside them.
  for (int x = -1; x <= 1; ++x) {
    for (int y = -1; y <= 1; ++y) {
      const Region region = RegionAt(x, y);
      AddRegion(region);
      AddLink(region, RegionAt(x + 1, y), true);
      AddLink(region, RegionAt(x, y + 1), false);
    }
  }
}

Landscape::Region Landscape::RegionAt(int stepX, int stepY) const {
  Region region;
  region.rx = mArea.mUintRx + static_cast<std::uint32_t>(stepX);
  region.ry = mArea.mUintRy + static_cast<std::uint32_t>(stepY);
  region.hash = HashOf(mSeed, region.rx, region.ry);
  region.isHome = region.rx == kHomeRegion && region.ry == kHomeRegion;
  const auto middleOf = [&](int step, std::uint8_t areaNumber, std::uint64_t salt) {
    const double jitter = region.isHome ? 0 : std::floor(80 * ChanceOf(MixBits(region.hash + salt)) - 40);
    return (step + 0.5) * kRegionSize - areaNumber * kAreaSize + jitter;
  };
  region.middle = {middleOf(stepX, mArea.mByAx, 1), middleOf(stepY, mArea.mByAy, 2)};
  const double size = ChanceOf(MixBits(region.hash + 3));
  region.radius = region.isHome ? 60 : 20 + 44 * size;
  const double chance = ChanceOf(MixBits(region.hash + 4));
  if (chance < 0.3 && region.radius > 34) {
    region.character = Character::Hamlet;
  } else if (chance < 0.5 && region.radius > 38) {
    region.character = Character::Farm;
  } else if (chance < 0.7) {
    region.character = Character::Glade;
  } else if (chance < 0.85 && region.radius > 36) {
    region.character = Character::Summit;
  }
  return region;
}

void Landscape::AddRegion(const Region& region) {
  if (!ReachesArea(region.middle, region.middle, region.radius + kReach)) return;
  mIslands.push_back({region.middle, region.radius});
  if (region.isHome) {
    AddHome(region);
    return;
  }
  AddCapes(region);
  switch (region.character) {
    case Character::Hamlet:
      mMoods.push_back({region.middle, 30, -1.2, -0.7});
      AddSite(GetHamletPlan(), region.middle);
      break;
    case Character::Farm: {
      const bool isFarSide = (region.hash & 1) != 0;
      const Spot farm = Moved(region.middle, {isFarSide ? 18 : -18, (region.hash & 2) != 0 ? 14 : -14});
      mMoods.push_back({farm, 30, -1.2, -0.9});
      AddSite(GetFarmPlan(), farm);
      AddSite(GetCrossroadsPlan(), region.middle);
      AddRoad(region.middle, Moved(farm, {isFarSide ? -kFarmGate : kFarmGate, 0}));
      break;
    }
    case Character::Glade:
      mMoods.push_back({region.middle, 30, -0.6, 0.9});
      AddSite(GetGladePlan(), region.middle);
      break;
    case Character::Summit:
      mMoods.push_back({region.middle, 30, 2.2, 0.2});
      AddSite(GetSummitPlan(), region.middle);
      break;
    case Character::Crossroads:
      AddSite(GetCrossroadsPlan(), region.middle);
      break;
  }
}

// Two smaller islands that grow together with the great one.
void Landscape::AddCapes(const Region& region) {
  for (std::uint64_t salt = 10; salt < 12; ++salt) {
    const std::uint64_t hash = MixBits(region.hash + salt);
    const auto shift = [&](std::uint64_t bits) { return std::floor(region.radius * (1.7 * ChanceOf(bits) - 0.85)); };
    const Spot middle = {region.middle.x + shift(MixBits(hash + 1)), region.middle.y + shift(MixBits(hash + 2))};
    mIslands.push_back({middle, region.radius * (0.4 + 0.3 * ChanceOf(hash))});
  }
}

void Landscape::AddHome(const Region& region) {
  const auto at = [&](PlanOffset offset) { return Moved(region.middle, offset); };
  AddSite(GetVillagePlan(), region.middle);
  AddSite(GetGladePlan(), at(kGlade));
  AddSite(GetSummitPlan(), at(kSummit));
  AddSite(GetHamletPlan(), at(kFarHamlet));
  AddSite(GetHayMeadowPlan(), at(kHayMeadow));
  AddSite(GetFarmPlan(), at(kFarm));
  for (const PlanOffset& cape : {kGlade, kNorthCape, kFarHamlet, kHayMeadow, kFarm}) mIslands.push_back({at(cape), 23});
  mInlets.push_back({at({38, 0}), at({100, 8}), 19});
  mMoods.push_back({region.middle, 42, -1.8, -0.9});
  mMoods.push_back({at(kFarHamlet), 28, -1.2, -0.6});
  mMoods.push_back({at(kGlade), 30, -0.8, 1.1});
  mMoods.push_back({at(kSummit), 27, 2.5, 0.3});
  mMoods.push_back({at(kHayMeadow), 26, -1.0, -1.0});
  mMoods.push_back({at(kFarm), 26, -1.4, -0.8});
  AddRoad(at(kVillageNorthWestGate), at(kGlade));
  AddRoad(at(kVillageNorthEastGate), at(kSummit));
  AddRoad(at(kVillageSouthWestGate), at({kFarm.x + kFarmGate, kFarm.y}));
  AddRoad(at(kVillageNorthEastGate), at(kHayMeadow));
  AddRoad(at(kVillageSouthWestGate), at({kFarHamlet.x - kHamletGate, kFarHamlet.y}));
}

void Landscape::AddLink(const Region& from, const Region& to, bool alongX) {
  constexpr double kChance = 0.72;
  const bool stays = from.isHome || to.isHome || ChanceOf(MixBits(from.hash + (alongX ? 5 : 6))) < kChance;
  if (!stays) return;
  const PlanOffset direction = alongX ? PlanOffset{1, 0} : PlanOffset{0, 1};
  AddRoad(from.GetGate(direction), to.GetGate({-direction.x, -direction.y}));
}

void Landscape::AddRoad(Spot from, Spot to) {
  constexpr double kBend = 16;
  constexpr double kPieceLength = 9;
  const Spot low = {std::min(from.x, to.x), std::min(from.y, to.y)};
  const Spot high = {std::max(from.x, to.x), std::max(from.y, to.y)};
  if (!ReachesArea(low, high, 2 * kBend)) return;
  const double length = Distance(from, to);
  const int count = std::max(1, static_cast<int>(length / kPieceLength));
  // Bent sideways, but not at its ends. The turns lie on sixteenths of fields from `from`, which is a whole number of
  // them away, so that every area finds the same bits.
  const Spot line = {to.x - from.x, to.y - from.y};
  const auto snap = [](double value) { return std::floor(value * 16) / 16; };
  Spot last = from;
  for (int i = 1; i <= count; ++i) {
    const double part = static_cast<double>(i) / count;
    const WorldPoint place = {
        mFirstField.x + static_cast<std::int64_t>(from.x) + static_cast<std::int64_t>(line.x * part),
        mFirstField.y + static_cast<std::int64_t>(from.y) + static_cast<std::int64_t>(line.y * part)};
    const double most = std::min(kBend, length / 5) * std::min(1.0, 5 * part * (1 - part));
    const double bend = std::clamp(mBend.At(place), -1.0, 1.0) * most / length;
    const Spot next = {from.x + snap(line.x * part - line.y * bend), from.y + snap(line.y * part + line.x * bend)};
    const Spot pieceLow = {std::min(last.x, next.x), std::min(last.y, next.y)};
    const Spot pieceHigh = {std::max(last.x, next.x), std::max(last.y, next.y)};
    if (ReachesArea(pieceLow, pieceHigh, 0)) mRoads.push_back({last, next});
    last = next;
  }
}

void Landscape::AddSite(const Plan& plan, Spot origin) {
  const Spot low = {origin.x + plan.GetLeft(), origin.y + plan.GetBottom()};
  const Spot high = {origin.x + plan.GetRight(), origin.y + plan.GetTop()};
  if (ReachesArea(low, high, 0)) mSites.push_back({&plan, static_cast<int>(origin.x), static_cast<int>(origin.y)});
}

const Plan::Cell& Landscape::GetPlanned(int x, int y) const {
  static const Plan::Cell nothing;
  for (const Site& site : mSites) {
    const Plan::Cell& cell = site.plan->At(x - site.x, y - site.y);
    if (cell.surface != Surface::Nature) return cell;
  }
  return nothing;
}

}  // namespace tolva
