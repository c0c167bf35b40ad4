#include "server/terrain/Vegetation.h"

#include <algorithm>
#include <limits>

namespace tolva {
namespace {

// Heights of noises are about -1 to 1, chances 0 to 1, distances in fields.

constexpr double kWoodBegins = 0.24;
constexpr double kWoodRim = 0.15;  // the rim ends this much higher
// Woods thin out this near the coast, by this much in each field.
constexpr double kCoastalStrip = 10;
constexpr double kCoastalThinning = 0.06;
constexpr double kGapTreeChance = 0.5;

constexpr double kFlowersBegin = 0.62;
constexpr double kDryGrassEnds = -0.5;
// A copse is where thickets, and part of the meadows' noise, are high.
constexpr double kMeadowInCopse = 0.5;
constexpr double kCopseBegins = 0.38;
constexpr double kCopseTreeChance = 0.8;
constexpr double kWoodlandTreeChance = 0.35;
constexpr double kMeadowTreeChance = 0.1;

// How strongly chance and the height of hills affect the kind of tree.
constexpr double kKindMix = 0.3;
constexpr double kKindByHills = 0.45;

constexpr double kSailingBoatChance = 0.0004;
constexpr double kPalmsBegin = 1;
// From the coast; there are none by ponds.
constexpr double kPalmsEnd = 13;
constexpr double kPalmThickets = -0.1;
constexpr double kPalmThicketsOnRim = 0.2;
constexpr double kPalmChance = 0.7;
constexpr double kPondInland = 8;
constexpr double kLilyThickets = 0;
constexpr double kReedThickets = -0.55;
constexpr double kPebbleThickets = -0.3;

constexpr double kFernThickets = 0.25;
constexpr double kMushroomThickets = -0.35;
constexpr double kBushThickets = 0.3;
constexpr double kTuftThickets = 0.1;
constexpr double kStoneThickets = -0.8;
// Above the first stand boulders, dense above the second; below the first, mountain trees.
constexpr double kBoulderThickets = -0.05;
constexpr double kDenseBoulderThickets = 0.25;
constexpr double kSnowThingChance = 0.3;

using enum Thing;

// A row of a table: a chance below `below`, and not below an earlier row's, picks the thing. Other chances pick none.
struct Bound {
  double below;
  Thing thing;
};
constexpr Bound kFlowerField[] = {{0.3, FlowerTuft}, {0.5, Poppies}};
constexpr Bound kFernThicket[] = {{0.34, Fern}, {0.4, BerryBush}, {0.96, None}, {1, Bush}};
constexpr Bound kMushroomGround[] = {{0.14, Mushrooms}, {0.18, Stump}, {0.2, Logs}, {0.96, None}, {1, Bush}};
constexpr Bound kWoodGround[] = {{0.96, None}, {1, Bush}};
constexpr Bound kBushes[] = {{0.7, Bush}, {1, BerryBush}};
constexpr Bound kStones[] = {{0.4, Rocks}, {0.6, Boulder}};
constexpr Bound kTufts[] = {{0.1, FlowerTuft}, {0.2, Tuft}};
constexpr Bound kGrass[] = {{0.05, Tuft}};
constexpr Bound kBoulders[] = {{0.45, Boulder}, {1, Rocks}};
constexpr Bound kRock[] = {{0.07, Pebbles}, {0.96, None}, {1, Tuft}};
constexpr Bound kSand[] = {{0.02, Rocks}};
constexpr Bound kPebbleBeach[] = {{0.02, Rocks}, {0.12, Pebbles}};
constexpr Bound kLilyPond[] = {{0.3, WaterLilies}};
constexpr Bound kReedPond[] = {{0.5, Reeds}};
constexpr Bound kReedShore[] = {{0.35, Reeds}};
constexpr Bound kShallows[] = {{0.004, Rocks}};
constexpr Bound kSandRim[] = {{0.04, Pebbles}};
constexpr Bound kGrassRim[] = {{0.1, Tuft}};
constexpr Bound kGrassRimInland[] = {{0.3, Bush}};
constexpr Bound kRockRim[] = {{0.4, Rocks}, {0.55, Boulder}};

Thing Pick(std::span<const Bound> bounds, double chance) {
  const auto found = std::ranges::find_if(bounds, [&](const Bound& bound) { return chance < bound.below; });
  return found == bounds.end() ? None : found->thing;
}

// A thing and its weight among others of a table; weights need not add up to 100. Shares without a weight are never
// drawn.
struct Share {
  Thing thing;
  int weight;
};
constexpr Share kMountainTrees[] = {{CrookedPine, 26}, {PineGroup, 20}, {YoungPine, 18},
                                    {Pine, 13},        {DeadTree, 9},   {None, 14}};
constexpr Share kSnowThings[] = {{Boulder, 50}, {YoungPine, 25}, {PineGroup, 25}};

// The trees of one kind of wood, for each Stand: close together they grow tall and thin, in the open
// broad.
struct Trees {
  double above;          // the kind of wood: from hills down to damp ground
  Share mixtures[3][7];  // for each Stand; seven kinds at most
};
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

// One of the shares, drawn by weight.
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

}  // namespace

Vegetation::Vegetation(std::uint64_t seed)
    : mSeed(MixBits(Salted(seed, WorldSalt::Growth))),
      mWoods(Salted(seed, WorldSalt::Woods), 48, 4),
      mTreeKinds(Salted(seed, WorldSalt::TreeKinds), 96, 3),
      mMeadows(Salted(seed, WorldSalt::Meadows), 24, 2),
      mThickets(Salted(seed, WorldSalt::Thickets), 12, 2) {}

double Vegetation::ChanceAt(WorldPoint point, GrowthSalt salt) const {
  return ChanceOf(HashOf(Salted(mSeed, salt), point.x, point.y));
}

double Vegetation::GetWood(const Habitat& habitat, const Landscape& landscape) const {
  double wood = mWoods.At(habitat.point) - std::max(0.0, kCoastalStrip - habitat.inland) * kCoastalThinning;
  for (const Landscape::Bias& bias : landscape.GetBiases()) wood += bias.woods * bias.GetStrength(habitat.spot);
  return wood;
}

Ground Vegetation::GetGround(const Habitat& habitat, const Landscape& landscape) const {
  if (GetWood(habitat, landscape) > kWoodBegins) return Ground::ForestFloor;
  const double meadow = mMeadows.At(habitat.point);
  if (meadow > kFlowersBegin) return Ground::Flowers;
  return meadow < kDryGrassEnds ? Ground::DryGrass : Ground::Grass;
}

bool Vegetation::WinsOver(std::span<const Direction> neighbors, WorldPoint point) const {
  const double own = ChanceAt(point, GrowthSalt::Contest);
  return std::ranges::none_of(
      neighbors, [&](Direction direction) { return ChanceAt(Next(point, direction), GrowthSalt::Contest) > own; });
}

bool Vegetation::IsGap(WorldPoint point) const {
  const auto wins = [&](WorldPoint field) { return WinsOver(kEdgeDirections, field); };
  return !wins(point) &&
         std::ranges::none_of(kEdgeDirections, [&](Direction direction) { return wins(Next(point, direction)); });
}

Thing Vegetation::GetThing(const Habitat& habitat, Ground ground, const Landscape& landscape) const {
  switch (habitat.level) {
    case Level::Deep:
      return ChanceAt(habitat.point, GrowthSalt::SailingBoat) < kSailingBoatChance ? SailingBoat : None;
    case Level::Shallow:
      return PickInWater(habitat.point, habitat.inland);
    case Level::Sand:
      return PickOnSand(habitat.point, habitat.inland);
    case Level::Rock:
      return PickOnRock(habitat.point);
    case Level::Snow:
      return PickOnSnow(habitat.point);
    case Level::Grass:
      break;
  }
  const double wood = GetWood(habitat, landscape);
  return wood > kWoodBegins ? PickInWood(habitat, landscape, wood) : PickOnMeadow(habitat, ground, landscape, wood);
}

Thing Vegetation::GetThingOnRim(const Habitat& habitat, Level upper) const {
  const WorldPoint point = habitat.point;
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  if (upper == Level::Sand) return Pick(kSandRim, chance);
  if (upper == Level::Grass) {
    if (!WinsOverAll(point)) return Pick(kGrassRim, chance);
    if (habitat.inland > kPalmsEnd) return Pick(kGrassRimInland, chance);
    return mThickets.At(point) > kPalmThicketsOnRim ? Palm : None;
  }
  return WinsOverAll(point) ? Pick(kRockRim, chance) : None;
}

// Trees stand close together inside a wood and apart on its rim.
Thing Vegetation::PickInWood(const Habitat& habitat, const Landscape& landscape, double wood) const {
  const WorldPoint point = habitat.point;
  if (wood < kWoodBegins + kWoodRim) {
    return WinsOverAll(point) ? PickTree(habitat, landscape, Stand::Rim) : PickUnderTrees(point);
  }
  const bool isTree =
      WinsOver(kEdgeDirections, point) || (ChanceAt(point, GrowthSalt::GapTree) < kGapTreeChance && IsGap(point));
  return isTree ? PickTree(habitat, landscape, Stand::Inside) : PickUnderTrees(point);
}

// Trees stand in copses and alone.
Thing Vegetation::PickOnMeadow(const Habitat& habitat, Ground ground, const Landscape& landscape, double wood) const {
  const WorldPoint point = habitat.point;
  if (ground == Ground::Flowers) return Pick(kFlowerField, ChanceAt(point, GrowthSalt::Thing));
  if (ground == Ground::Grass && WinsOverAll(point)) {
    const bool isCopse = mThickets.At(point) + kMeadowInCopse * mMeadows.At(point) > kCopseBegins;
    const bool isWoodland = wood > 0;
    const double treeChance = isCopse ? kCopseTreeChance : isWoodland ? kWoodlandTreeChance : kMeadowTreeChance;
    if (ChanceAt(point, GrowthSalt::MeadowTree) < treeChance) {
      return PickTree(habitat, landscape, isCopse || isWoodland ? Stand::Rim : Stand::Alone);
    }
  }
  return PickOnGrass(point);
}

Thing Vegetation::PickTree(const Habitat& habitat, const Landscape& landscape, Stand stand) const {
  const WorldPoint point = habitat.point;
  double kind = mTreeKinds.At(point) + kKindMix * (ChanceAt(point, GrowthSalt::TreeKind) - 0.5);
  for (const Landscape::Bias& bias : landscape.GetBiases()) {
    kind += kKindByHills * bias.hills * bias.GetStrength(habitat.spot);
  }
  const auto row = std::ranges::find_if(kTrees, [&](const Trees& trees) { return kind > trees.above; });
  return Draw(row->mixtures[static_cast<std::size_t>(stand)], ChanceAt(point, GrowthSalt::Tree));
}

Thing Vegetation::PickUnderTrees(WorldPoint point) const {
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  const double thicket = mThickets.At(point);
  if (thicket > kFernThickets) return Pick(kFernThicket, chance);
  return thicket < kMushroomThickets ? Pick(kMushroomGround, chance) : Pick(kWoodGround, chance);
}

Thing Vegetation::PickOnGrass(WorldPoint point) const {
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  const double thicket = mThickets.At(point);
  if (WinsOverAll(point)) {
    if (thicket > kBushThickets) return Pick(kBushes, chance);
    if (thicket < kStoneThickets) return Pick(kStones, chance);
  }
  return thicket > kTuftThickets ? Pick(kTufts, chance) : Pick(kGrass, chance);
}

// Fields of boulders, and pines between them.
Thing Vegetation::PickOnRock(WorldPoint point) const {
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  const double thicket = mThickets.At(point);
  if (thicket > kBoulderThickets) {
    const bool isDense = thicket >= kDenseBoulderThickets;
    if (isDense ? WinsOver(kEdgeDirections, point) : WinsOverAll(point)) return Pick(kBoulders, chance);
  }
  if (thicket < kBoulderThickets && WinsOverAll(point)) return Draw(kMountainTrees, chance);
  return Pick(kRock, chance);
}

Thing Vegetation::PickOnSnow(WorldPoint point) const {
  if (!WinsOverAll(point) || ChanceAt(point, GrowthSalt::Thing) > kSnowThingChance) return None;
  return Draw(kSnowThings, ChanceAt(point, GrowthSalt::SnowThing));
}

Thing Vegetation::PickOnSand(WorldPoint point, double inland) const {
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  const double thicket = mThickets.At(point);
  const bool hasPalms = inland > kPalmsBegin && inland < kPalmsEnd && thicket > kPalmThickets;
  if (hasPalms && chance < kPalmChance && WinsOverAll(point)) return Palm;
  return thicket < kPebbleThickets ? Pick(kPebbleBeach, chance) : Pick(kSand, chance);
}

Thing Vegetation::PickInWater(WorldPoint point, double inland) const {
  const double chance = ChanceAt(point, GrowthSalt::Thing);
  const double thicket = mThickets.At(point);
  if (inland > kPondInland) {
    if (thicket > kLilyThickets) return Pick(kLilyPond, chance);
    return thicket < kReedThickets ? Pick(kReedPond, chance) : None;
  }
  return thicket < kReedThickets ? Pick(kReedShore, chance) : Pick(kShallows, chance);
}

}  // namespace tolva
