#include "server/terrain/Vegetation.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <span>

namespace tolva {
namespace {

constexpr double kWoodBegins = 0.24;
// How far from the coast the last palms stand: none by ponds.
constexpr double kPalmsEnd = 13;

struct Share {
  Thing thing;
  int weight;
};
// One of the shares; `chance` is from 0 to 1. Shares without a weight are never drawn.
Thing Draw(std::span<const Share> shares, double chance) {
  int total = 0;
  for (const Share& share : shares) total += share.weight;
  double left = chance * total;
  for (const Share& share : shares) {
    left -= share.weight;
    if (left < 0) return share.thing;
  }
  return shares.front().thing;
}

// The trees of one kind of wood, for each Stand: where trees are close they grow tall and thin; where they have light
// from all sides they grow broad.
struct Trees {
  double above;  // what kind of wood it is: from hills down to damp ground
  Share mixtures[3][7];
};
using enum Thing;
constexpr Trees kTrees[] = {
    {0.25,
     {{{Pine, 32}, {SlimPine, 28}, {OldPine, 18}, {YoungPine, 10}, {PineGroup, 8}, {SlenderTree, 4}},
      {{Pine, 24}, {PineGroup, 24}, {SlimPine, 16}, {YoungPine, 16}, {OldPine, 12}, {CrookedPine, 8}},
      {{OldPine, 30}, {CrookedPine, 30}, {Pine, 20}, {PineGroup, 20}}}},
    {-0.3,
     {{{Beech, 22}, {YoungBeech, 17}, {SlenderTree, 20}, {Oak, 17}, {YoungOak, 13}, {Hornbeam, 8}, {AutumnTree, 3}},
      {{Oak, 20}, {YoungOak, 16}, {Hornbeam, 20}, {GreatOak, 18}, {Beech, 10}, {YoungBeech, 10}, {AutumnTree, 6}},
      {{GreatOak, 50}, {Oak, 20}, {Hornbeam, 20}, {Beech, 10}}}},
    {-0.6,
     {{{Birch, 56}, {SlenderTree, 24}, {YoungOak, 20}},
      {{Birch, 60}, {Oak, 20}, {Hornbeam, 20}},
      {{Birch, 60}, {GreatOak, 40}}}},
    {-std::numeric_limits<double>::infinity(),
     {{{AutumnTree, 50}, {Birch, 35}, {SlenderTree, 15}},
      {{AutumnTree, 60}, {Birch, 40}},
      {{AutumnTree, 70}, {GreatOak, 30}}}},
};

}  // namespace

Vegetation::Vegetation(std::uint64_t seed)
    : mSeed(MixBits(seed + 21)),
      mWoods(seed + 22, 48, 4),
      mKinds(seed + 23, 96, 3),
      mMeadows(seed + 24, 24, 2),
      mThickets(seed + 25, 12, 2) {}

double Vegetation::ChanceAt(WorldPoint place, std::uint64_t salt) const {
  return ChanceOf(HashOf(mSeed + salt, WrapCoordinate(place.x), WrapCoordinate(place.y)));
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
bool Vegetation::IsFirstOf(WorldPoint place, bool withDiagonals) const {
  const double own = ChanceAt(place, 1);
  for (int dx = -1; dx <= 1; ++dx) {
    for (int dy = -1; dy <= 1; ++dy) {
      const bool isNeighbor = (dx != 0) != (dy != 0) || (withDiagonals && dx != 0);
      if (isNeighbor && ChanceAt({place.x + dx, place.y + dy}, 1) > own) return false;
    }
  }
  return true;
}

// Whether the draw has left room for one more: none of the four neighbours has won, nor the field itself.
bool Vegetation::IsGap(WorldPoint place) const {
  constexpr PlanOffset kCross[] = {{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}};
  return std::none_of(std::begin(kCross), std::end(kCross), [&](const PlanOffset& step) {
    return IsFirstOf({place.x + step.x, place.y + step.y}, false);
  });
}

Thing Vegetation::GetThing(const Habitat& habitat, Ground ground, const Landscape& landscape) const {
  const WorldPoint place = habitat.place;
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
      return PickOnSnow(place);
    case Level::Grass:
      break;
  }
  // Trees stand close inside a wood, apart on its rim, and in copses and alone on the meadow.
  const double wood = GetWood(habitat, landscape);
  if (wood > kWoodBegins) {
    const bool isRim = wood < kWoodBegins + 0.15;
    const bool isTree = IsFirstOf(place, isRim) || (!isRim && ChanceAt(place, 8) < 0.5 && IsGap(place));
    if (!isTree) return PickUnderTrees(place);
    return PickTree(habitat, landscape, isRim ? Stand::Rim : Stand::Inside);
  }
  if (ground == Ground::Grass && IsFirstOf(place, true)) {
    const bool isCopse = mThickets.At(place) + 0.5 * mMeadows.At(place) > 0.38;
    if (ChanceAt(place, 7) < (isCopse ? 0.8 : wood > 0 ? 0.35 : 0.1)) {
      return PickTree(habitat, landscape, isCopse || wood > 0 ? Stand::Rim : Stand::Alone);
    }
  }
  if (ground == Ground::Flowers) {
    const double chance = ChanceAt(place, 3);
    if (chance < 0.3) return Thing::FlowerTuft;
    return chance < 0.5 ? Thing::Poppies : Thing::None;
  }
  return PickOnGrass(place);
}

Thing Vegetation::GetThingOnRim(const Habitat& habitat, Level upper) const {
  const WorldPoint place = habitat.place;
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

Thing Vegetation::PickTree(const Habitat& habitat, const Landscape& landscape, Stand stand) const {
  double kind = mKinds.At(habitat.place) + 0.3 * (ChanceAt(habitat.place, 5) - 0.5);
  for (const Landscape::Mood& mood : landscape.GetMoods()) kind += 0.45 * mood.hills * mood.GetStrength(habitat.spot);
  const auto row = std::ranges::find_if(kTrees, [&](const Trees& trees) { return kind > trees.above; });
  return Draw(row->mixtures[static_cast<std::size_t>(stand)], ChanceAt(habitat.place, 6));
}

Thing Vegetation::PickUnderTrees(WorldPoint place) const {
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

Thing Vegetation::PickOnGrass(WorldPoint place) const {
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
Thing Vegetation::PickOnRock(WorldPoint place) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (thicket > -0.05 && IsFirstOf(place, thicket < 0.25)) return chance < 0.45 ? Thing::Boulder : Thing::Rocks;
  if (thicket < -0.05 && IsFirstOf(place, true)) {
    constexpr Share kMountainTrees[] = {{CrookedPine, 26}, {PineGroup, 20}, {YoungPine, 18},
                                        {Pine, 13},        {DeadTree, 9},   {None, 14}};
    return Draw(kMountainTrees, chance);
  }
  if (chance < 0.07) return Thing::Pebbles;
  return chance > 0.96 ? Thing::Tuft : Thing::None;
}

Thing Vegetation::PickOnSnow(WorldPoint place) const {
  if (!IsFirstOf(place, true) || ChanceAt(place, 3) > 0.3) return Thing::None;
  constexpr Share kSnowThings[] = {{Boulder, 50}, {YoungPine, 25}, {PineGroup, 25}};
  return Draw(kSnowThings, ChanceAt(place, 4));
}

Thing Vegetation::PickOnSand(WorldPoint place, double inland) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  if (IsFirstOf(place, true) && inland > 1 && inland < kPalmsEnd && thicket > -0.1 && chance < 0.7) return Thing::Palm;
  if (chance < 0.02) return Thing::Rocks;
  return thicket < -0.3 && chance < 0.12 ? Thing::Pebbles : Thing::None;
}

Thing Vegetation::PickInWater(WorldPoint place, double inland) const {
  const double chance = ChanceAt(place, 3);
  const double thicket = mThickets.At(place);
  const bool isPond = inland > 8;
  if (isPond && thicket > 0) return chance < 0.3 ? Thing::WaterLilies : Thing::None;
  if (thicket < -0.55 && chance < (isPond ? 0.5 : 0.35)) return Thing::Reeds;
  return !isPond && chance < 0.004 ? Thing::Rocks : Thing::None;
}

}  // namespace tolva
