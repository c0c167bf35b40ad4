#pragma once

#include <string_view>
#include <vector>

#include "server/terrain/WorldPictures.h"

namespace tolva {

// What a plan wants the ground of one field to be. Nature leaves ground and growth to the landscape, Open only the
// ground.
enum class Surface : std::uint8_t { Nature, Open, Shallow, Sand, Grass, DryGrass, Flowers, Field, Path, Cobbles };

constexpr bool IsPaved(Surface surface) { return surface == Surface::Path || surface == Surface::Cobbles; }

// A place composed by hand: a village, a glade, a hilltop.
class Plan {
 public:
  struct Cell {
    Surface surface = Surface::Nature;
    Thing thing = Thing::None;
    // The picture of the house that covers the field; 0 where it has none.
    std::uint32_t housePicture = 0;
    bool inHouse = false;
  };

  // `drawing` is a map of signs, listed in Plan.cpp, one line for each row of fields: x grows to the right, y upward.
  // All lines have the same length; houses lie entirely within the map. The origin is the column, and the row counted
  // from below, by which the plan is placed.
  Plan(std::string_view drawing, int originX, int originY);

  // The fields that the plan covers, counted from its origin: x from GetLeft() to below GetRight(), y from GetBottom()
  // to below GetTop().
  int GetLeft() const { return -mOriginX; }
  int GetRight() const { return mWidth - mOriginX; }
  int GetBottom() const { return -mOriginY; }
  int GetTop() const { return mHeight - mOriginY; }

  // The cell at (x, y), counted from the origin; an untouched one outside the plan.
  const Cell& At(int x, int y) const;

 private:
  std::size_t IndexOf(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(mWidth) + static_cast<std::size_t>(column);
  }
  Cell& CellAt(int column, int row) { return mCells[IndexOf(column, row)]; }
  void Build(const House& house, int column, int row);

  int mOriginX;
  int mOriginY;
  int mWidth = 0;
  int mHeight = 0;
  std::vector<Cell> mCells;
};

}  // namespace tolva
