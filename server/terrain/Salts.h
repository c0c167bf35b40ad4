#pragma once

#include <cstdint>

namespace tolva {

// What is added to a seed or a hash so that each use of it draws numbers of its own. A changed value changes the world.

// Added to the world's seed.
enum class WorldSalt : std::uint64_t {
  Coast = 11,
  Islets = 12,
  Hills = 13,
  Ponds = 14,
  Ridges = 15,
  Growth = 21,
  Woods = 22,
  TreeKinds = 23,
  Meadows = 24,
  Thickets = 25,
  GroundVariant = 31,
};

// Added to the landscape's seed.
enum class LandscapeSalt : std::uint64_t { RoadBends = 1 };

// Added to a region's hash.
enum class RegionSalt : std::uint64_t {
  MiddleX = 1,
  MiddleY = 2,
  Radius = 3,
  Character = 4,
  RoadSouthEast = 5,
  RoadNorthEast = 6,
  FirstCape = 10,
  SecondCape = 11,
};

// Added to a cape's hash.
enum class CapeSalt : std::uint64_t { MiddleX = 1, MiddleY = 2 };

// Added to the seed of what grows, for the chances of one field.
enum class GrowthSalt : std::uint64_t {
  Contest = 1,
  SailingBoat = 2,
  Thing = 3,
  SnowThing = 4,
  TreeKind = 5,
  Tree = 6,
  MeadowTree = 7,
  GapTree = 8,
};

template <typename Salt>
constexpr std::uint64_t Salted(std::uint64_t seed, Salt salt) {
  return seed + static_cast<std::uint64_t>(salt);
}

}  // namespace tolva
