#include "world/ClientMap.h"

#include <utility>

#include "foundation/Guard.h"
#include "protocol/WorldPoint.h"
#include "world/Field.h"

namespace tolva {
namespace {

constexpr int kLast = kMapEdge - 1;

// The corners, edges and inner square that are linked together, with the trace of each.
struct Block {
  const char* method;
  int firstR, lastR, firstC, lastC;
};
constexpr Block kBlocks[] = {{"SetNeighborsAtNorth", 0, 0, kLast, kLast},
                             {"SetNeighborsAtNorthEast", 1, kLast - 1, kLast, kLast},
                             {"SetNeighborsAtEast", kLast, kLast, kLast, kLast},
                             {"SetNeighborsAtSouthEast", kLast, kLast, 1, kLast - 1},
                             {"SetNeighborsAtSouth", kLast, kLast, 0, 0},
                             {"SetNeighborsAtSouthWest", 1, kLast - 1, 0, 0},
                             {"SetNeighborsAtWest", 0, 0, 0, 0},
                             {"SetNeighborsAtNorthWest", 0, 0, 1, kLast - 1},
                             {"SetNeighborsAtCenter", 1, kLast - 1, 1, kLast - 1}};

bool IsInside(int r, int c) { return r >= 0 && r < kMapEdge && c >= 0 && c < kMapEdge; }

template <typename Square, typename Body>
void ForEachPlace(Square& areas, Body&& body) {
  for (auto& row : areas) {
    for (auto& area : row) body(area);
  }
}

void PlaceFrom(Area& area, const AreaPosition& position) {
  area.SetPosition(position);
  for (const Direction direction :
       {Direction::NorthEast, Direction::SouthEast, Direction::SouthWest, Direction::NorthWest}) {
    Area* next = area.GetNeighbor(direction);
    if (next != nullptr && !next->IsPlaced()) PlaceFrom(*next, NextArea(position, StepIn(direction)));
  }
}

}  // namespace

ClientMap::ClientMap() {
  Guard("ClientMap", "ClientMap", [&] { Initialize(); });
}

ClientMap::~ClientMap() { Terminate(); }

void ClientMap::Initialize() {
  Guard("ClientMap", "Initialize", [&] {
    ForEachPlace(mAreas, [](auto& area) { area = std::make_unique<Area>(); });
    ResetAllAreas();
    SetAllNeighbors();
  });
}

// Without a guard: nothing in it can fail, and the destructor calls it.
void ClientMap::Terminate() noexcept {
  mCharacters.clear();
  ForEachPlace(mAreas, [](auto& area) { area.reset(); });
}

Area* ClientMap::GetAreaAt(std::uint8_t r, std::uint8_t c) const {
  return IsInside(r, c) ? mAreas[r][c].get() : nullptr;
}

Step ClientMap::GetStepsFromCenter(const Area& area) const {
  for (int r = 0; r < kMapEdge; ++r) {
    for (int c = 0; c < kMapEdge; ++c) {
      if (mAreas[r][c].get() == &area) return {r - kMapCenter, c - kMapCenter};
    }
  }
  return {};
}

// Where the area must be follows from where the first one is. What is not there is on the map only if the areas do not
// continue each other, as before the first placement.
Area* ClientMap::GetArea(const AreaPosition& position) const {
  return Guard("ClientMap", "GetArea", [&]() -> Area* {
    const auto [r, c] = CountAreasAhead(mAreas[0][0]->GetPosition(), position);
    if (r < kMapEdge && c < kMapEdge && IsSameArea(mAreas[r][c]->GetPosition(), position)) return mAreas[r][c].get();
    for (const auto& row : mAreas) {
      for (const auto& area : row) {
        if (IsSameArea(area->GetPosition(), position)) return area.get();
      }
    }
    return nullptr;
  });
}

Field* ClientMap::GetField(const FieldPosition& position) const {
  return Guard("ClientMap", "GetField", [&] {
    Area* area = GetArea(position);
    return area == nullptr ? nullptr : area->GetField(position.mByFx, position.mByFy);
  });
}

void ClientMap::AddCharacter(Field& field, std::unique_ptr<Character> character) {
  if (field.IsOccupied()) return;
  const Character* key = character.get();
  field.AddCharacter(mCharacters.emplace(key, std::move(character)).first->second.get());
}

void ClientMap::RemoveCharacter(Field& field) {
  const Character* character = field.GetCharacter();
  if (character == nullptr) return;
  field.RemoveCharacter();
  mCharacters.erase(character);
}

void ClientMap::RemoveCharactersOf(Area& area) {
  for (Field& field : area.GetFields()) RemoveCharacter(field);
}

void ClientMap::SetMapCoordinatesByCenter(const AreaPosition& center) {
  Guard("ClientMap", "SetMapCoordinatesByCenter", [&] {
    ResetAllAreas();
    SetAreaCoordinates(*GetCenterArea(), center);
  });
}

void ClientMap::SetAreaCoordinates(Area& area, const AreaPosition& position) {
  Guard("ClientMap", "SetAreaCoordinates", [&] { PlaceFrom(area, position); });
}

void ClientMap::ResetArea(std::uint8_t r, std::uint8_t c) {
  Guard("ClientMap", "ResetArea", [&] {
    Area* area = GetAreaAt(r, c);
    if (area == nullptr) return;
    RemoveCharactersOf(*area);
    area->Reset();
  });
}

void ClientMap::ResetAllAreas() {
  Guard("ClientMap", "ResetAllAreas", [&] {
    for (std::uint8_t r = 0; r < kMapEdge; ++r) {
      for (std::uint8_t c = 0; c < kMapEdge; ++c) ResetArea(r, c);
    }
  });
}

void ClientMap::SetAllNeighbors() {
  Guard("ClientMap", "SetAllNeighbors", [&] {
    for (const Block& block : kBlocks) {
      Guard("ClientMap", block.method,
            [&] { SetNeighborsOfBlock(block.firstR, block.lastR, block.firstC, block.lastC); });
    }
    ForEachPlace(mAreas, [](auto& area) { area->InitFields(); });
  });
}

void ClientMap::SetNeighborsOfBlock(int firstR, int lastR, int firstC, int lastC) {
  for (int r = firstR; r <= lastR; ++r) {
    for (int c = firstC; c <= lastC; ++c) {
      for (const Direction direction : kDirections) {
        const int nextR = r + StepIn(direction).x;
        const int nextC = c + StepIn(direction).y;
        mAreas[r][c]->SetNeighbor(direction, IsInside(nextR, nextC) ? mAreas[nextR][nextC].get() : nullptr);
      }
    }
  }
}

void ClientMap::ShiftAreas(Direction direction) {
  Guard("ClientMap", "ShiftAreas", [&] {
    if (!IsDirection(direction)) return;
    const Step step = StepIn(direction);
    if (step.y > 0) ShiftAreasToNorthEast();
    if (step.x > 0) ShiftAreasToSouthEast();
    if (step.y < 0) ShiftAreasToSouthWest();
    if (step.x < 0) ShiftAreasToNorthWest();
  });
}

void ClientMap::ShiftAreasToNorthEast() {
  Guard("ClientMap", "ShiftAreasToNorthEast", [&] { ShiftBy(Direction::NorthEast); });
}

void ClientMap::ShiftAreasToSouthEast() {
  Guard("ClientMap", "ShiftAreasToSouthEast", [&] { ShiftBy(Direction::SouthEast); });
}

void ClientMap::ShiftAreasToSouthWest() {
  Guard("ClientMap", "ShiftAreasToSouthWest", [&] { ShiftBy(Direction::SouthWest); });
}

void ClientMap::ShiftAreasToNorthWest() {
  Guard("ClientMap", "ShiftAreasToNorthWest", [&] { ShiftBy(Direction::NorthWest); });
}

void ClientMap::ShiftBy(Direction direction) {
  const Step step = StepIn(direction);
  // Allocated before anything moves: if that fails, the map stays as it was.
  std::array<std::unique_ptr<Area>, kMapEdge> fresh;
  for (auto& area : fresh) area = std::make_unique<Area>();

  AreaSquare shifted;
  for (int r = 0; r < kMapEdge; ++r) {
    for (int c = 0; c < kMapEdge; ++c) {
      const int newR = r + step.x;
      const int newC = c + step.y;
      if (IsInside(newR, newC)) {
        shifted[newR][newC] = std::move(mAreas[r][c]);
      } else {
        RemoveCharactersOf(*mAreas[r][c]);
      }
    }
  }
  auto next = fresh.begin();
  ForEachPlace(shifted, [&](auto& area) {
    if (area == nullptr) area = std::move(*next++);
  });
  mAreas = std::move(shifted);
  SetAllNeighbors();
  // The new areas get their positions from a kept one next to them.
  const auto besideNew = [](int along) { return along > 0 ? 1 : along < 0 ? kLast - 1 : 0; };
  Area& kept = *mAreas[besideNew(step.x)][besideNew(step.y)];
  SetAreaCoordinates(kept, AreaPosition(kept.GetPosition()));
}

}  // namespace tolva
