#pragma once

#include <cstdint>

namespace tolva {

// The pictures that the world is made of, by their ids in the `Graphics` archive; assets/art/catalogue.py lists them.
//
// Ground ids that differ only in their low 4 bits are one ground to the client, which blends where different grounds
// meet. So each kind and each painted transition has 16 ids of its own: variants of a kind, pieces of a transition.

// Kinds of ground, by the first of their 16 ids; variants are counted from 0.
enum class Ground : std::uint32_t {
  Deep = 112000,
  Shallow = 112016,
  Sand = 112032,
  Grass = 112048,  // 0 and 1 are plain, 2 and 3 have flowers, to be used rarely
  DryGrass = 112064,
  ForestFloor = 112080,
  Path = 112096,
  Rock = 112112,
  Snow = 112128,
  Cobbles = 112144,
  Flowers = 112160,
  Field = 112176,  // plowed
};
constexpr std::uint32_t kGroundVariants = 4;

// Painted transitions from an upper kind to a lower one, by the first of their ids. The bits of a piece's number (1 to
// 14) are the corners of the picture that have the upper kind: 1 north, 2 east, 4 south, 8 west. Pieces match their two
// kinds and each other at the borders, so they need no blending: smoothness 0.
enum class Transition : std::uint32_t {
  ShallowDeep = 112512,
  SandShallow = 112528,
  GrassSand = 112544,
  GrassPath = 112560,
  GrassDryGrass = 112576,
  GrassRock = 112592,
  SnowRock = 112608,
  GrassCobbles = 112624,
};

// Things that stand on a field.
enum class Thing : std::uint32_t {
  None = 0,
  Oak = 120000,
  Beech = 120001,
  Pine = 120002,
  Palm = 120003,
  Birch = 120004,
  AutumnTree = 120005,
  DeadTree = 120006,
  YoungPine = 120007,
  GreatOak = 120008,
  SlenderTree = 120009,
  Hornbeam = 120010,
  OldPine = 120011,
  PineGroup = 120012,
  CrookedPine = 120013,
  YoungOak = 120014,
  YoungBeech = 120015,
  SlimPine = 120016,
  Bush = 120020,
  BerryBush = 120021,
  Fern = 120022,
  Mushrooms = 120023,
  Tuft = 120024,
  FlowerTuft = 120025,
  Poppies = 120026,
  Reeds = 120027,
  WaterLilies = 120028,
  Rocks = 120040,
  Boulder = 120041,
  Pebbles = 120042,
  Stump = 120043,
  Logs = 120044,
  // A fence along the named edge of its field.
  FenceNorthEast = 120060,
  FenceSouthEast = 120061,
  FenceSouthWest = 120062,
  FenceNorthWest = 120063,
  Lantern = 120080,
  Well = 120081,
  Signpost = 120082,
  Barrels = 120083,
  FlowerBed = 120084,
  FruitStall = 120085,
  FishStall = 120086,
  Bench = 120087,
  Haystack = 120088,
  Cart = 120089,
  Campfire = 120090,
  Scarecrow = 120091,
  // Walkable pieces over water, along the NE-SW and the NW-SE line of fields.
  PierNorthEast = 120100,
  PierNorthWest = 120101,
  Boat = 120102,
  SailingBoat = 120103,
};

// A house covers `width` (along x, to the south-east) by `depth` (along y, to the north-east) fields. Only the fields
// of its two front edges, the south-eastern and the south-western, have a picture; it shows what stands behind them
// too.
struct House {
  std::uint32_t first;
  int width;
  int depth;

  // The picture of the field i steps along x and j along y from the house's western corner field; 0 for none.
  constexpr std::uint32_t PictureOf(int i, int j) const {
    const bool isFront = i == width - 1 || j == 0;
    return isFront ? first + static_cast<std::uint32_t>(8 * i + j) : 0;
  }
};
constexpr House kTiledHouse{121000, 3, 3};     // door to the south-west
constexpr House kThatchedHouse{121064, 3, 2};  // door to the south-west
constexpr House kTavern{121128, 4, 3};         // door to the south-west, a sign beside it

}  // namespace tolva
