#include "plain/ClientMap.h"

#include <utility>

namespace tolva::plain {
namespace {

constexpr int kLast = kMapEdge - 1;

bool IsInMap(int r, int c) { return r >= 0 && r < kMapEdge && c >= 0 && c < kMapEdge; }
bool IsInArea(int fx, int fy) { return fx >= 0 && fx < kAreaEdge && fy >= 0 && fy < kAreaEdge; }
std::size_t IndexOf(int fx, int fy) { return static_cast<std::size_t>(fx * kAreaEdge + fy); }

// The field at (fx, fy), which may lie up to one field outside the area.
Field* FieldAcross(Area& area, int fx, int fy) {
  const auto sideOf = [](int place) { return place < 0 ? -1 : place >= kAreaEdge ? 1 : 0; };
  const Step side{sideOf(fx), sideOf(fy)};
  const Direction direction = DirectionOf(side);
  Area* across = direction == Direction::None ? &area : area.GetNeighbor(direction);
  if (across == nullptr) return nullptr;
  return &across->GetFields()[IndexOf(fx - side.x * kAreaEdge, fy - side.y * kAreaEdge)];
}

void LinkFields(Area& area) {
  for (int fx = 0; fx < kAreaEdge; ++fx) {
    for (int fy = 0; fy < kAreaEdge; ++fy) {
      Field& field = area.GetFields()[IndexOf(fx, fy)];
      field.SetPlace(&area, static_cast<std::uint8_t>(fx), static_cast<std::uint8_t>(fy));
      const bool isInner = IsInArea(fx - 1, fy - 1) && IsInArea(fx + 1, fy + 1);
      for (const Direction direction : kDirections) {
        const int nextFx = fx + StepIn(direction).x, nextFy = fy + StepIn(direction).y;
        field.SetNeighbor(direction,
                          isInner ? &area.GetFields()[IndexOf(nextFx, nextFy)] : FieldAcross(area, nextFx, nextFy));
      }
    }
  }
}

void PlaceFrom(Area& area, const AreaPosition& position) {
  area.SetPosition(position);
  for (const Direction direction : kEdgeDirections) {
    Area* next = area.GetNeighbor(direction);
    if (next != nullptr && !next->IsPlaced()) PlaceFrom(*next, NextArea(position, StepIn(direction)));
  }
}

}  // namespace

ClientMap::ClientMap(const AreaPosition& center) {
  for (auto& row : mAreas) {
    for (auto& area : row) area = std::make_unique<Area>();
  }
  LinkAll();
  PlaceFrom(*mAreas[kMapCenter][kMapCenter], center);
}

void ClientMap::ShiftAreas(Direction direction) {
  const Step step = StepIn(direction);
  if (step.y != 0) ShiftBy({0, step.y});
  if (step.x != 0) ShiftBy({step.x, 0});
}

void ClientMap::ShiftBy(Step step) {
  AreaSquare shifted;
  for (int r = 0; r < kMapEdge; ++r) {
    for (int c = 0; c < kMapEdge; ++c) {
      const int oldR = r - step.x;
      const int oldC = c - step.y;
      shifted[r][c] = IsInMap(oldR, oldC) ? std::move(mAreas[oldR][oldC]) : std::make_unique<Area>();
    }
  }
  mAreas = std::move(shifted);
  LinkAll();
  const auto besideNew = [](int along) { return along > 0 ? 1 : along < 0 ? kLast - 1 : 0; };
  Area& kept = *mAreas[besideNew(step.x)][besideNew(step.y)];
  PlaceFrom(kept, AreaPosition(kept.GetPosition()));
}

void ClientMap::LinkAll() {
  for (int r = 0; r < kMapEdge; ++r) {
    for (int c = 0; c < kMapEdge; ++c) {
      for (const Direction direction : kDirections) {
        const int nextR = r + StepIn(direction).x;
        const int nextC = c + StepIn(direction).y;
        mAreas[r][c]->SetNeighbor(direction, IsInMap(nextR, nextC) ? mAreas[nextR][nextC].get() : nullptr);
      }
    }
  }
  for (auto& row : mAreas) {
    for (auto& area : row) LinkFields(*area);
  }
}

}  // namespace tolva::plain
