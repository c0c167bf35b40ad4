#pragma once

#include <string_view>
#include <vector>

#include "server/terrain/WorldPictures.h"

namespace tolva {

// What a plan wants the ground of one field to be. Nature leaves field and growth to the landscape; Open leaves the
// ground to it, but not what stands there.
enum class Surface : std::uint8_t { Nature, Open, Shallow, Sand, Grass, DryGrass, Flowers, Field, Path, Cobbles };

constexpr bool IsPaved(Surface surface) { return surface == Surface::Path || surface == Surface::Cobbles; }

// A place composed by hand: a village, a glade, a hilltop.
class Plan {
 public:
  struct Cell {
    Surface surface = Surface::Nature;
    Thing thing = Thing::None;
    // The picture of the house that covers the field; 0 where it shows none here.
    std::uint32_t housePicture = 0;
    bool inHouse = false;
  };

  // `drawing` is a map of signs (Plan.cpp has their list), a line for each row of fields: to the right x grows, upwards
  // y. Its lines are equally long; houses lie whole within it. `originX`, `originY`: the column and, counted from
  // below, the row that the plan is placed by.
  Plan(std::string_view drawing, int originX, int originY);

  // The fields that the plan covers, counted from its origin: from GetLeft() to below GetRight(), and so on.
  int GetLeft() const { return -mOriginX; }
  int GetRight() const { return mWidth - mOriginX; }
  int GetBottom() const { return -mOriginY; }
  int GetTop() const { return mHeight - mOriginY; }

  // An untouched field outside of the plan.
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
