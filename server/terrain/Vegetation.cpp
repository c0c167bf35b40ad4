#include "server/terrain/Vegetation.h"

#include <algorithm>

namespace tolva {
namespace {

constexpr double kWoodBegins = 0.24;
// How far from the coast the last palms stand: none by ponds.
constexpr double kPalmsEnd = 13;

}  // namespace

Vegetation::Vegetation(std::uint64_t seed)
    : mSeed(MixBits(seed + 21)),
      mWoods(seed + 22, 48, 4),
      mKinds(seed + 23, 96, 3),
      mMeadows(seed + 24, 24, 2),
      mThickets(seed + 25, 12, 2) {}

double Vegetation::ChanceAt(PlanePoint place, std::uint64_t salt) const {
  return ChanceOf(HashOf(mSeed + salt, WrapPlane(place.x), WrapPlane(place.y)));
}

double Vegetation::GetWood(const Habitat& habitat, const Landscape& landscape) const {
  double wood = mWoods.At(habitat.place) - std::max(0.0, 10 - habitat.inland) * 0.06;
  for (const Landscape::Mood& mood : landscape.GetMoods()) {
    wood += mood.woods * mood.GetStrength(habitat.spot);
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
      return PickOnRock(place);
    case Level::Snow:
      if (!IsFirstOf(place, true) || ChanceAt(place, 3) > 0.3) return Thing::None;
      return ChanceAt(place, 4) < 0.5 ? Thing::Boulder : Thing::YoungPine;
    case Level::Grass:
      break;
  }
  // Trees stand close inside a wood, apart on its rim, and in copses and alone on the meadow.
  const double wood = GetWood(habitat, landscape);
  if (wood > kWoodBegins) {
    const bool isTree = IsFirstOf(place, wood < kWoodBegins + 0.15);
    return isTree ? PickTree(habitat, landscape) : PickUnderTrees(place);
  }
  if (ground == Ground::Grass && IsFirstOf(place, true)) {
    const bool isCopse = mThickets.At(place) + 0.5 * mMeadows.At(place) > 0.38;
    if (ChanceAt(place, 7) < (isCopse ? 0.8 : wood > 0 ? 0.35 : 0.1)) return PickTree(habitat, landscape);
  }
  if (ground == Ground::Flowers) {
    const double chance = ChanceAt(place, 3);
    if (chance < 0.3) return Thing::FlowerTuft;
    return chance < 0.5 ? Thing::Poppies : Thing::None;
  }
  return PickOnGrass(place);
}

Thing Vegetation::GetThingOnRim(const Habitat& habitat, Level upper) const {
  const PlanePoint place = habitat.place;
  const double chance = ChanceAt(place, 3);
  if (upper == Level::Sand) return chance < 0.04 ? Thing::Pebbles : Thing::None;
  if (upper == Level::Grass) {
    if (!IsFirstOf(place, true)) return chance < 0.1 ? Thing::Tuft : Thing::None;
    if (habitat.inland > kPalmsEnd) return chance < 0.3 ? Thing::Bush : Thing::None;
    return mThickets.At(place) > 0.2 ? Thing::Palm : Thing::None;
  }
  if (!IsFirstOf(place, true)) return Thing::None;
  return chance < 0.4 ? Thing::Rocks : chance < 0.55 ? Thing::Boulder : Thing::None;
}

Thing Vegetation::PickTree(const Habitat& habitat, const Landscape& landscape) const {
  double kind = mKinds.At(habitat.place) + 0.3 * (ChanceAt(habitat.place, 5) - 0.5);
  for (const Landscape::Mood& mood : landscape.GetMoods()) kind += 0.45 * mood.hills * mood.GetStrength(habitat.spot);
  const double chance = ChanceAt(habitat.place, 6);
  if (kind > 0.25) return chance < 0.8 ? Thing::Pine : Thing::YoungPine;
  if (kind < -0.6) return chance < 0.6 ? Thing::AutumnTree : Thing::Birch;
  if (kind < -0.3) return chance < 0.7 ? Thing::Birch : Thing::Oak;
  return chance < 0.5 ? Thing::Oak : chance < 0.96 ? Thing::Beech : Thing::AutumnTree;
}

Thing Vegetation::PickUnderTrees(PlanePoint place) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (thicket > 0.25) {
    if (chance < 0.34) return Thing::Fern;
    if (chance < 0.4) return Thing::BerryBush;
  } else if (thicket < -0.35) {
    if (chance < 0.14) return Thing::Mushrooms;
    if (chance < 0.18) return Thing::Stump;
    if (chance < 0.2) return Thing::Logs;
  }
  return chance > 0.96 ? Thing::Bush : Thing::None;
}

Thing Vegetation::PickOnGrass(PlanePoint place) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (IsFirstOf(place, true)) {
    if (thicket > 0.3) return chance < 0.7 ? Thing::Bush : Thing::BerryBush;
    if (thicket < -0.8 && chance < 0.6) return chance < 0.4 ? Thing::Rocks : Thing::Boulder;
  }
  if (thicket > 0.1 && chance < 0.2) return chance < 0.1 ? Thing::FlowerTuft : Thing::Tuft;
  return chance < 0.05 ? Thing::Tuft : Thing::None;
}

// Fields of boulders, and pines between them.
Thing Vegetation::PickOnRock(PlanePoint place) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (thicket > -0.05 && IsFirstOf(place, thicket < 0.25)) return chance < 0.45 ? Thing::Boulder : Thing::Rocks;
  if (thicket < -0.05 && IsFirstOf(place, true)) {
    if (chance < 0.75) return chance < 0.35 ? Thing::Pine : Thing::YoungPine;
    return chance < 0.85 ? Thing::DeadTree : Thing::None;
  }
  if (chance < 0.07) return Thing::Pebbles;
  return chance > 0.96 ? Thing::Tuft : Thing::None;
}

Thing Vegetation::PickOnSand(PlanePoint place, double inland) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (IsFirstOf(place, true) && inland > 1 && inland < kPalmsEnd && thicket > -0.1 && chance < 0.7) return Thing::Palm;
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
