#pragma once

#include <cstdint>

#include "server/terrain/Landscape.h"
#include "server/terrain/LatticeNoise.h"
#include "server/terrain/TerrainLevels.h"
#include "server/terrain/WorldPictures.h"

namespace tolva {

// What grows where nobody has built: woods, meadows and shores that change over dozens of fields, and within them trees
// that keep their distance, thickets and clearings.
class Vegetation {
 public:
  explicit Vegetation(std::uint64_t seed);

  // A field that is no transition.
  struct Habitat {
    WorldPoint place;
    Spot spot;
    Level level;
    double inland;
  };

  // The ground on a grass field: Grass itself or one of the soft kinds that lie inside it.
  Ground GetGround(const Habitat& habitat, const Landscape& landscape) const;
  // What stands there; `ground` is the ground of the field.
  Thing GetThing(const Habitat& habitat, Ground ground, const Landscape& landscape) const;
  // What stands on a field between two levels, of which `upper` is the higher.
  Thing GetThingOnRim(const Habitat& habitat, Level upper) const;

 private:
  // How much room a tree has: inside a wood, on its rim or in a copse, or a meadow to itself.
  enum class Stand { Inside, Rim, Alone };

  double GetWood(const Habitat& habitat, const Landscape& landscape) const;
  bool IsFirstOf(WorldPoint place, bool withDiagonals) const;
  bool IsGap(WorldPoint place) const;
  Thing PickTree(const Habitat& habitat, const Landscape& landscape, Stand stand) const;
  Thing PickUnderTrees(WorldPoint place) const;
  Thing PickOnGrass(WorldPoint place) const;
  Thing PickOnRock(WorldPoint place) const;
  Thing PickOnSnow(WorldPoint place) const;
  Thing PickOnSand(WorldPoint place, double inland) const;
  Thing PickInWater(WorldPoint place, double inland) const;
  double ChanceAt(WorldPoint place, std::uint64_t salt) const;

  std::uint64_t mSeed;
  LatticeNoise mWoods;
  LatticeNoise mKinds;
  LatticeNoise mMeadows;
  LatticeNoise mThickets;
};

}  // namespace tolva
