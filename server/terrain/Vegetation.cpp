#include "server/terrain/Vegetation.h"

#include <algorithm>

namespace tolva {
namespace {

constexpr double kWoodBegins = 0.3;

}  // namespace

Vegetation::Vegetation(std::uint64_t seed)
    : mSeed(MixBits(seed + 21)),
      mWoods(seed + 22, 48, 4),
      mKinds(seed + 23, 32, 2),
      mMeadows(seed + 24, 24, 2),
      mThickets(seed + 25, 12, 2) {}

double Vegetation::ChanceAt(PlanePoint place, std::uint64_t salt) const {
  return ChanceOf(HashOf(mSeed + salt, WrapPlane(place.x), WrapPlane(place.y)));
}

double Vegetation::GetWood(const Habitat& habitat, const Landscape& landscape) const {
  double wood = mWoods.At(habitat.place) - std::max(0.0, 10 - habitat.inland) * 0.06;
  for (const Landscape::Mood& mood : landscape.GetMoods()) {
    wood += mood.woods * std::max(0.0, 1 - Distance(habitat.spot, mood.middle) / mood.radius);
  }
  return wood;
}

Ground Vegetation::GetGround(const Habitat& habitat, const Landscape& landscape) const {
  if (GetWood(habitat, landscape) > kWoodBegins) return Ground::ForestFloor;
  const double meadow = mMeadows.At(habitat.place);
  if (meadow > 0.62) return Ground::Flowers;
  return meadow < -0.5 ? Ground::DryGrass : Ground::Grass;
}

// Whether the field wins over its neighbours in a draw: winners never touch each other.
bool Vegetation::IsFirstOf(PlanePoint place, bool withDiagonals) const {
  const double own = ChanceAt(place, 1);
  for (int dx = -1; dx <= 1; ++dx) {
    for (int dy = -1; dy <= 1; ++dy) {
      const bool isNeighbor = (dx != 0) != (dy != 0) || (withDiagonals && dx != 0);
      if (isNeighbor && ChanceAt({place.x + dx, place.y + dy}, 1) > own) return false;
    }
  }
  return true;
}

Thing Vegetation::GetThing(const Habitat& habitat, Ground ground, const Landscape& landscape) const {
  const PlanePoint place = habitat.place;
  switch (habitat.level) {
    case Level::Deep:
      return ChanceAt(place, 2) < 0.0004 ? Thing::SailingBoat : Thing::None;
    case Level::Shallow:
      return PickInWater(place, habitat.inland);
    case Level::Sand:
      return PickOnSand(place, habitat.inland);
    case Level::Rock:
      if (!IsFirstOf(place, true)) return ChanceAt(place, 3) < 0.05 ? Thing::Pebbles : Thing::None;
      if (mThickets.At(place) > 0.1) return ChanceAt(place, 3) < 0.5 ? Thing::Boulder : Thing::Rocks;
      if (ChanceAt(place, 4) < 0.35) return ChanceAt(place, 3) < 0.7 ? Thing::YoungPine : Thing::DeadTree;
      return Thing::None;
    case Level::Snow:
      if (!IsFirstOf(place, true) || ChanceAt(place, 3) > 0.3) return Thing::None;
      return ChanceAt(place, 4) < 0.5 ? Thing::Boulder : Thing::YoungPine;
    case Level::Grass:
      break;
  }
  const double wood = GetWood(habitat, landscape);
  if (wood > kWoodBegins) return PickInWood(place, wood);
  if (ground == Ground::Flowers) {
    const double chance = ChanceAt(place, 3);
    if (chance < 0.3) return Thing::FlowerTuft;
    return chance < 0.5 ? Thing::Poppies : Thing::None;
  }
  return PickOnGrass(place, wood);
}

Thing Vegetation::GetThingOnRim(PlanePoint place, Level upper) const {
  const double chance = ChanceAt(place, 3);
  if (upper == Level::Sand) return chance < 0.04 ? Thing::Pebbles : Thing::None;
  if (upper == Level::Grass) {
    if (!IsFirstOf(place, true)) return chance < 0.25 ? Thing::Tuft : Thing::None;
    return mThickets.At(place) > 0.2 ? Thing::Palm : Thing::None;
  }
  if (!IsFirstOf(place, true)) return Thing::None;
  return chance < 0.3 ? Thing::Rocks : chance < 0.4 ? Thing::Boulder : Thing::None;
}

Thing Vegetation::PickTree(PlanePoint place) const {
  const double kind = mKinds.At(place) + 0.3 * (ChanceAt(place, 5) - 0.5);
  const double chance = ChanceAt(place, 6);
  if (kind > 0.25) return chance < 0.8 ? Thing::Pine : Thing::YoungPine;
  if (kind < -0.6) return chance < 0.7 ? Thing::AutumnTree : Thing::Birch;
  if (kind < -0.3) return chance < 0.75 ? Thing::Birch : Thing::Oak;
  return chance < 0.55 ? Thing::Oak : Thing::Beech;
}

Thing Vegetation::PickInWood(PlanePoint place, double wood) const {
  // Inside, trees stand closer than on the rim.
  if (IsFirstOf(place, wood < kWoodBegins + 0.15)) return PickTree(place);
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (thicket > 0.35) {
    if (chance < 0.3) return Thing::Fern;
    if (chance < 0.36) return Thing::BerryBush;
  } else if (thicket < -0.4) {
    if (chance < 0.14) return Thing::Mushrooms;
    if (chance < 0.18) return Thing::Stump;
    if (chance < 0.2) return Thing::Logs;
  }
  return chance > 0.96 ? Thing::Bush : Thing::None;
}

Thing Vegetation::PickOnGrass(PlanePoint place, double wood) const {
  const double chance = ChanceAt(place, 3);
  const bool isFirst = IsFirstOf(place, true);
  // Single trees and bushes lead from the wood to the meadow.
  if (isFirst && wood > 0.05 && chance < 0.5) return chance < 0.2 ? Thing::Bush : PickTree(place);
  const double thicket = mThickets.At(place);
  if (isFirst && thicket > 0.55) return chance < 0.6 ? Thing::Bush : Thing::BerryBush;
  if (isFirst && thicket < -0.75 && chance < 0.5) return chance < 0.35 ? Thing::Rocks : Thing::Boulder;
  if (thicket > 0.2 && chance < 0.22) return chance < 0.1 ? Thing::FlowerTuft : Thing::Tuft;
  return chance < 0.05 ? Thing::Tuft : Thing::None;
}

Thing Vegetation::PickOnSand(PlanePoint place, double inland) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (IsFirstOf(place, true) && inland > 1 && thicket > -0.1 && chance < 0.7) return Thing::Palm;
  if (chance < 0.02) return Thing::Rocks;
  return thicket < -0.3 && chance < 0.12 ? Thing::Pebbles : Thing::None;
}

Thing Vegetation::PickInWater(PlanePoint place, double inland) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  const bool isPond = inland > 8;
  if (isPond && thicket > 0) return chance < 0.3 ? Thing::WaterLilies : Thing::None;
  if (thicket < -0.55 && chance < (isPond ? 0.5 : 0.35)) return Thing::Reeds;
  return !isPond && chance < 0.004 ? Thing::Rocks : Thing::None;
}

}  // namespace tolva
