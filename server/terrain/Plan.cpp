#include "server/terrain/Plan.h"

#include <algorithm>
#include <iterator>

namespace tolva {
namespace {

struct Sign {
  char sign;
  Surface surface;
  Thing thing = Thing::None;
  const House* house = nullptr;
};

constexpr Sign kSigns[] = {
    {' ', Surface::Nature},
    {'.', Surface::Grass},
    {'=', Surface::Path},
    {'#', Surface::Cobbles},
    {':', Surface::Sand},
    {'~', Surface::Shallow},
    {'m', Surface::Field},
    {'*', Surface::Flowers},
    {'"', Surface::DryGrass},
    // Trees and plants.
    {'o', Surface::Grass, Thing::Oak},
    {'e', Surface::Grass, Thing::Beech},
    {'i', Surface::Grass, Thing::Birch},
    {'a', Surface::Grass, Thing::AutumnTree},
    {'p', Surface::Grass, Thing::Pine},
    {'j', Surface::Grass, Thing::YoungPine},
    {'y', Surface::Sand, Thing::Palm},
    {'b', Surface::Grass, Thing::Bush},
    {'r', Surface::Grass, Thing::BerryBush},
    {',', Surface::Grass, Thing::Tuft},
    {';', Surface::Grass, Thing::FlowerTuft},
    {'!', Surface::Flowers, Thing::Poppies},
    {'w', Surface::Shallow, Thing::Reeds},
    // A fence, at the side of its field that the sign points to.
    {'^', Surface::Grass, Thing::FenceNorthEast},
    {'>', Surface::Grass, Thing::FenceSouthEast},
    {'v', Surface::Grass, Thing::FenceSouthWest},
    {'<', Surface::Grass, Thing::FenceNorthWest},
    // Made by people.
    {'L', Surface::Grass, Thing::Lantern},
    {'l', Surface::Cobbles, Thing::Lantern},
    {'W', Surface::Cobbles, Thing::Well},
    {'F', Surface::Grass, Thing::FlowerBed},
    {'f', Surface::Cobbles, Thing::FlowerBed},
    {'1', Surface::Cobbles, Thing::FruitStall},
    {'2', Surface::Cobbles, Thing::FishStall},
    {'N', Surface::Grass, Thing::Bench},
    {'n', Surface::Cobbles, Thing::Bench},
    {'S', Surface::Grass, Thing::Signpost},
    {'B', Surface::Grass, Thing::Barrels},
    {'8', Surface::Sand, Thing::Barrels},
    {'C', Surface::Grass, Thing::Cart},
    {'Y', Surface::Grass, Thing::Haystack},
    {'h', Surface::DryGrass, Thing::Haystack},
    {'K', Surface::Field, Thing::Scarecrow},
    {'G', Surface::Grass, Thing::Logs},
    {'s', Surface::Grass, Thing::Stump},
    {'c', Surface::Grass, Thing::Campfire},
    {'O', Surface::Grass, Thing::Boulder},
    {'R', Surface::Grass, Thing::Rocks},
    {'%', Surface::Sand, Thing::Pebbles},
    // Boards along x or along y.
    {'-', Surface::Open, Thing::PierNorthWest},
    {'|', Surface::Open, Thing::PierNorthEast},
    {'u', Surface::Open, Thing::Boat},
    {'U', Surface::Open, Thing::SailingBoat},
    // The western corner field of a house, and the rest of it.
    {'H', Surface::Grass, Thing::None, &kTiledHouse},
    {'T', Surface::Grass, Thing::None, &kThatchedHouse},
    {'I', Surface::Grass, Thing::None, &kTavern},
    {'+', Surface::Grass},
};

const Plan::Cell kOutside;

}  // namespace

Plan::Plan(std::string_view drawing, int originX, int originY) : mOriginX(originX), mOriginY(originY) {
  const std::size_t line = drawing.find('\n') + 1;
  mWidth = static_cast<int>(line) - 1;
  mHeight = static_cast<int>(drawing.size() / line);
  mCells.resize(IndexOf(0, mHeight));
  const auto signAt = [&](int column, int row) {
    return drawing[static_cast<std::size_t>(mHeight - 1 - row) * line + static_cast<std::size_t>(column)];
  };
  for (int row = 0; row < mHeight; ++row) {
    for (int column = 0; column < mWidth; ++column) {
      const Sign* known = std::ranges::find(kSigns, signAt(column, row), &Sign::sign);
      if (known == std::end(kSigns)) continue;
      Cell& cell = CellAt(column, row);
      cell.surface = known->surface;
      cell.thing = known->thing;
      if (known->house != nullptr) Build(*known->house, column, row);
    }
  }
}

const Plan::Cell& Plan::At(int x, int y) const {
  const int column = x + mOriginX;
  const int row = y + mOriginY;
  if (column < 0 || column >= mWidth || row < 0 || row >= mHeight) return kOutside;
  return mCells[IndexOf(column, row)];
}

void Plan::Build(const House& house, int column, int row) {
  for (int i = 0; i < house.width; ++i) {
    for (int j = 0; j < house.depth; ++j) {
      Cell& cell = CellAt(column + i, row + j);
      cell.inHouse = true;
      cell.housePicture = house.PictureOf(i, j);
    }
  }
}

}  // namespace tolva
