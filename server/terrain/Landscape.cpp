#include "server/terrain/Landscape.h"

#include <algorithm>
#include <cmath>

#include "server/terrain/ArrivalIsland.h"

namespace tolva {

// A plan, and how it biases hills and woods around it.
struct Composition {
  const Plan& (*getPlan)();
  double radius;
  double hills;
  double woods;
};

namespace {

constexpr double kAreaSize = kAreaEdge;
constexpr double kRegionSize = kRegionFields;

// What is farther from the area than this cannot change it.
constexpr double kReach = 20;

// All lengths are in fields.

constexpr double kHomeRadius = 60;
constexpr double kHomeCapeRadius = 23;
// The land around the summit of the arrival island.
constexpr PlanOffset kNorthCape = {-34, 40};
constexpr PlanOffset kHomeCapes[] = {kGlade, kNorthCape, kFarHamlet, kHayMeadow, kFarm};
// The bay of the arrival village's harbor.
constexpr PlanOffset kHarborFrom = {38, 0};
constexpr PlanOffset kHarborTo = {100, 8};
constexpr double kHarborRadius = 19;

constexpr double kMinRadius = 20;
constexpr double kRadiusRange = 44;
// How far the middle of an island can be from the middle of its region, along each axis.
constexpr double kMaxJitter = 40;

// Of its island's radius.
constexpr double kMaxCapeShift = 0.85;
constexpr double kMinCapeRadius = 0.4;
constexpr double kCapeRadiusRange = 0.3;

constexpr int kFarmX = 18;
constexpr int kFarmY = 14;
// The bits of a region's hash that choose the farm's side and end of the island.
constexpr std::uint64_t kFarmSideBit = 1;
constexpr std::uint64_t kFarmEndBit = 2;

constexpr double kRoadChance = 0.72;
constexpr double kMaxBend = 16;
constexpr double kRoadPieceLength = 9;
constexpr double kBendSteps = 16;  // in a field

constexpr Composition kHamletComposition = {GetHamletPlan, 30, -1.2, -0.7};
constexpr Composition kFarmComposition = {GetFarmPlan, 30, -1.2, -0.9};
constexpr Composition kGladeComposition = {GetGladePlan, 30, -0.6, 0.9};
constexpr Composition kSummitComposition = {GetSummitPlan, 30, 2.2, 0.2};

// The compositions of the arrival island, placed from its middle.
struct HomePlace {
  PlanOffset offset;
  Composition composition;
};
constexpr HomePlace kHomePlaces[] = {
    {{0, 0}, {GetVillagePlan, 42, -1.8, -0.9}},       {kFarHamlet, {GetHamletPlan, 28, -1.2, -0.6}},
    {kGlade, {GetGladePlan, 30, -0.8, 1.1}},          {kSummit, {GetSummitPlan, 27, 2.5, 0.3}},
    {kHayMeadow, {GetHayMeadowPlan, 26, -1.0, -1.0}}, {kFarm, {GetFarmPlan, 26, -1.4, -0.8}},
};

enum class Character { Hamlet, Farm, Glade, Summit, Crossroads };

// The first row whose conditions a region meets decides: a random number from 0 to 1 below `chanceBelow`, and an island
// large enough.
struct CharacterRow {
  double chanceBelow;
  double minRadius;
  Character character;
};
constexpr CharacterRow kCharacters[] = {{0.3, 34, Character::Hamlet},
                                        {0.5, 38, Character::Farm},
                                        {0.7, 0, Character::Glade},
                                        {0.85, 36, Character::Summit}};

Character CharacterOf(double chance, double radius) {
  const auto* row = std::ranges::find_if(kCharacters, [&](const CharacterRow& candidate) {
    return chance < candidate.chanceBelow && radius > candidate.minRadius;
  });
  return row == std::end(kCharacters) ? Character::Crossroads : row->character;
}

bool ReachesArea(Spot low, Spot high, double radius) {
  const double reach = radius + kReach;
  return low.x < kAreaSize + reach && low.y < kAreaSize + reach && high.x > -reach && high.y > -reach;
}

Spot Moved(Spot spot, PlanOffset by) { return {spot.x + by.x, spot.y + by.y}; }

Spot LowCornerOf(Spot a, Spot b) { return {std::min(a.x, b.x), std::min(a.y, b.y)}; }
Spot HighCornerOf(Spot a, Spot b) { return {std::max(a.x, b.x), std::max(a.y, b.y)}; }

}  // namespace

double Distance(Spot a, Spot b) { return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y)); }

double DistanceToLine(Spot point, Spot from, Spot to) {
  const Spot line = {to.x - from.x, to.y - from.y};
  const double length = line.x * line.x + line.y * line.y;
  const double along = length > 0 ? ((point.x - from.x) * line.x + (point.y - from.y) * line.y) / length : 0;
  const double part = std::clamp(along, 0.0, 1.0);
  return Distance(point, {from.x + part * line.x, from.y + part * line.y});
}

double Landscape::Bias::GetStrength(Spot spot) const { return std::max(0.0, 1 - Distance(spot, middle) / radius); }

struct Landscape::Region {
  std::uint64_t hash = 0;
  bool isHome = false;
  Character character = Character::Crossroads;
  Spot middle;
  double radius = 0;

  // Where the road to the neighbor region in `direction` begins, one of kEdgeDirections.
  Spot GetGate(Direction direction) const {
    if (isHome) return GetHomeGate(direction);
    const Step step = StepIn(direction);
    return character == Character::Hamlet ? Moved(middle, {step.x * kHamletGate, step.y * kHamletGate}) : middle;
  }
  Spot GetHomeGate(Direction direction) const {
    switch (direction) {
      case Direction::SouthEast:
        return Moved(middle, {kFarHamlet.x + kHamletGate, kFarHamlet.y});
      case Direction::NorthWest:
        return Moved(middle, kVillageNorthWestGate);
      case Direction::NorthEast:
        return Moved(middle, kVillageNorthEastGate);
      default:
        return Moved(middle, kVillageSouthWestGate);
    }
  }
};

Landscape::Landscape(std::uint64_t seed, const AreaPosition& area)
    : mSeed(MixBits(seed)),
      mArea(area),
      mFirstField(FirstFieldOf(area)),
      mBend(Salted(mSeed, LandscapeSalt::RoadBends), 48, 2) {
  // Islands, and the roads between them, stay within their own regions and the neighboring ones.
  for (int x = -1; x <= 1; ++x) {
    for (int y = -1; y <= 1; ++y) {
      const Region region = MakeRegion(x, y);
      AddRegion(region);
      AddLink(region, MakeRegion(x + 1, y), Direction::SouthEast);
      AddLink(region, MakeRegion(x, y + 1), Direction::NorthEast);
    }
  }
}

Landscape::Region Landscape::MakeRegion(int stepX, int stepY) const {
  const std::uint32_t rx = mArea.mUintRx + static_cast<std::uint32_t>(stepX);
  const std::uint32_t ry = mArea.mUintRy + static_cast<std::uint32_t>(stepY);
  Region region;
  region.hash = HashOf(mSeed, rx, ry);
  region.isHome = rx == kHomeRegion && ry == kHomeRegion;
  const auto chanceOf = [&](RegionSalt salt) { return ChanceOf(MixBits(Salted(region.hash, salt))); };
  const auto middleOf = [&](int step, std::uint8_t areaNumber, RegionSalt salt) {
    const double jitter = region.isHome ? 0 : std::floor(2 * kMaxJitter * chanceOf(salt) - kMaxJitter);
    return (step + 0.5) * kRegionSize - areaNumber * kAreaSize + jitter;
  };
  region.middle = {middleOf(stepX, mArea.mByAx, RegionSalt::MiddleX),
                   middleOf(stepY, mArea.mByAy, RegionSalt::MiddleY)};
  region.radius = region.isHome ? kHomeRadius : kMinRadius + kRadiusRange * chanceOf(RegionSalt::Radius);
  region.character = CharacterOf(chanceOf(RegionSalt::Character), region.radius);
  return region;
}

void Landscape::AddRegion(const Region& region) {
  if (!ReachesArea(region.middle, region.middle, region.radius + kReach)) return;
  mIslands.push_back({region.middle, region.radius});
  if (region.isHome) return AddHome(region);
  AddCapes(region);
  switch (region.character) {
    case Character::Hamlet:
      return AddComposition(kHamletComposition, region.middle);
    case Character::Farm:
      return AddFarm(region);
    case Character::Glade:
      return AddComposition(kGladeComposition, region.middle);
    case Character::Summit:
      return AddComposition(kSummitComposition, region.middle);
    case Character::Crossroads:
      return AddSite(GetCrossroadsPlan(), region.middle);
  }
}

// Two smaller islands that merge with the large one.
void Landscape::AddCapes(const Region& region) {
  for (const RegionSalt salt : {RegionSalt::FirstCape, RegionSalt::SecondCape}) {
    const std::uint64_t hash = MixBits(Salted(region.hash, salt));
    const auto shift = [&](CapeSalt axis) {
      const double chance = ChanceOf(MixBits(Salted(hash, axis)));
      return std::floor(region.radius * (2 * kMaxCapeShift * chance - kMaxCapeShift));
    };
    const Spot middle = {region.middle.x + shift(CapeSalt::MiddleX), region.middle.y + shift(CapeSalt::MiddleY)};
    mIslands.push_back({middle, region.radius * (kMinCapeRadius + kCapeRadiusRange * ChanceOf(hash))});
  }
}

void Landscape::AddHome(const Region& region) {
  const auto at = [&](PlanOffset offset) { return Moved(region.middle, offset); };
  for (const HomePlace& place : kHomePlaces) AddComposition(place.composition, at(place.offset));
  for (const PlanOffset& cape : kHomeCapes) mIslands.push_back({at(cape), kHomeCapeRadius});
  mInlets.push_back({at(kHarborFrom), at(kHarborTo), kHarborRadius});
  AddRoad(at(kVillageNorthWestGate), at(kGlade));
  AddRoad(at(kVillageNorthEastGate), at(kSummit));
  AddRoad(at(kVillageSouthWestGate), at({kFarm.x + kFarmGate, kFarm.y}));
  AddRoad(at(kVillageNorthEastGate), at(kHayMeadow));
  AddRoad(at(kVillageSouthWestGate), at({kFarHamlet.x - kHamletGate, kFarHamlet.y}));
}

// A farm off the middle, with a lane to the crossroads there.
void Landscape::AddFarm(const Region& region) {
  const int side = (region.hash & kFarmSideBit) != 0 ? 1 : -1;
  const int end = (region.hash & kFarmEndBit) != 0 ? 1 : -1;
  const Spot farm = Moved(region.middle, {side * kFarmX, end * kFarmY});
  AddComposition(kFarmComposition, farm);
  AddSite(GetCrossroadsPlan(), region.middle);
  AddRoad(region.middle, Moved(farm, {-side * kFarmGate, 0}));
}

void Landscape::AddLink(const Region& from, const Region& to, Direction direction) {
  const RegionSalt salt = direction == Direction::SouthEast ? RegionSalt::RoadSouthEast : RegionSalt::RoadNorthEast;
  const bool exists = from.isHome || to.isHome || ChanceOf(MixBits(Salted(from.hash, salt))) < kRoadChance;
  if (exists) AddRoad(from.GetGate(direction), to.GetGate(Opposite(direction)));
}

void Landscape::AddRoad(Spot from, Spot to) {
  if (!ReachesArea(LowCornerOf(from, to), HighCornerOf(from, to), 2 * kMaxBend)) return;
  const double length = Distance(from, to);
  const int count = std::max(1, static_cast<int>(length / kRoadPieceLength));
  const Spot line = {to.x - from.x, to.y - from.y};
  // `from` is a whole number of fields away. With turns on fractions of fields that doubles hold exactly, every area
  // finds the same bits.
  const auto snap = [](double value) { return std::floor(value * kBendSteps) / kBendSteps; };
  Spot last = from;
  for (int i = 1; i <= count; ++i) {
    const double part = static_cast<double>(i) / count;
    const WorldPoint point =
        Moved(mFirstField, static_cast<std::int64_t>(from.x) + static_cast<std::int64_t>(line.x * part),
              static_cast<std::int64_t>(from.y) + static_cast<std::int64_t>(line.y * part));
    // Bent sideways, but less toward its ends.
    const double maxBend = std::min(kMaxBend, length / 5) * std::min(1.0, 5 * part * (1 - part));
    const double bend = std::clamp(mBend.At(point), -1.0, 1.0) * maxBend / length;
    const Spot next = {from.x + snap(line.x * part - line.y * bend), from.y + snap(line.y * part + line.x * bend)};
    if (ReachesArea(LowCornerOf(last, next), HighCornerOf(last, next), 0)) mRoads.push_back({last, next});
    last = next;
  }
}

void Landscape::AddComposition(const Composition& composition, Spot origin) {
  mBiases.push_back({origin, composition.radius, composition.hills, composition.woods});
  AddSite(composition.getPlan(), origin);
}

void Landscape::AddSite(const Plan& plan, Spot origin) {
  const Spot low = {origin.x + plan.GetLeft(), origin.y + plan.GetBottom()};
  const Spot high = {origin.x + plan.GetRight(), origin.y + plan.GetTop()};
  if (ReachesArea(low, high, 0)) mSites.push_back({&plan, static_cast<int>(origin.x), static_cast<int>(origin.y)});
}

const Plan::Cell& Landscape::GetPlanned(int x, int y) const {
  static const Plan::Cell kUntouched;
  for (const Site& site : mSites) {
    const Plan::Cell& cell = site.plan->At(x - site.x, y - site.y);
    if (cell.surface != Surface::Nature) return cell;
  }
  return kUntouched;
}

std::array<const Plan::Cell*, 4> Landscape::GetPlannedAtCorner(int x, int y) const {
  return {&GetPlanned(x - 1, y - 1), &GetPlanned(x - 1, y), &GetPlanned(x, y - 1), &GetPlanned(x, y)};
}

}  // namespace tolva
