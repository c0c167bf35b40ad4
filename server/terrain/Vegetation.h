#pragma once

#include <cstdint>
#include <span>

#include "server/terrain/GradientNoise.h"
#include "server/terrain/Landscape.h"
#include "server/terrain/TerrainLevels.h"
#include "server/terrain/WorldPictures.h"

namespace tolva {

// What grows where nobody has built: woods, meadows and shores that change over dozens of fields, and within them trees
// that keep their distance, thickets and clearings.
class Vegetation {
 public:
  explicit Vegetation(std::uint64_t seed);

  // A field that is not a transition.
  struct Habitat {
    WorldPoint point;
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
  // Whether the field beats its neighbors in these directions in a contest: of two neighbors at most one does.
  bool WinsOver(std::span<const Direction> neighbors, WorldPoint point) const;
  bool WinsOverAll(WorldPoint point) const { return WinsOver(kDirections, point); }
  // Whether the contest among edge neighbors left the field and its edge neighbors empty.
  bool IsGap(WorldPoint point) const;
  Thing PickInWood(const Habitat& habitat, const Landscape& landscape, double wood) const;
  Thing PickOnMeadow(const Habitat& habitat, Ground ground, const Landscape& landscape, double wood) const;
  Thing PickTree(const Habitat& habitat, const Landscape& landscape, Stand stand) const;
  Thing PickUnderTrees(WorldPoint point) const;
  Thing PickOnGrass(WorldPoint point) const;
  Thing PickOnRock(WorldPoint point) const;
  Thing PickOnSnow(WorldPoint point) const;
  Thing PickOnSand(WorldPoint point, double inland) const;
  Thing PickInWater(WorldPoint point, double inland) const;
  double ChanceAt(WorldPoint point, GrowthSalt salt) const;

  std::uint64_t mSeed;
  GradientNoise mWoods;
  GradientNoise mTreeKinds;
  GradientNoise mMeadows;
  GradientNoise mThickets;
};

}  // namespace tolva
