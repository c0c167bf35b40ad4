#pragma once

#include <array>
#include <memory>

#include "protocol/Direction.h"
#include "world/Area.h"

namespace tolva::plain {

// Moves a square of areas as tolva::ClientMap does, and links all areas and all fields anew each time. Has no
// characters.
class ClientMap {
 public:
  explicit ClientMap(const AreaPosition& center);

  // `direction` is one of the eight.
  void ShiftAreas(Direction direction);

 private:
  using AreaSquare = std::array<std::array<std::unique_ptr<Area>, kMapEdge>, kMapEdge>;

  void ShiftBy(Step step);
  void LinkAll();

  AreaSquare mAreas;
};

}  // namespace tolva::plain
