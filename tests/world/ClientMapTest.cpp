#include <gtest/gtest.h>

#include "protocol/WorldPoint.h"
#include "support/SyncWorld.h"

namespace tolva::test {
namespace {

// Null outside the map.
Area* AreaAt(const ClientMap& map, int r, int c) {
  return r < 0 || c < 0 ? nullptr : map.GetAreaAt(static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(c));
}

// The areas lie side by side, across the borders of regions.
void ExpectPlaced(const ClientMap& map) {
  const AreaPosition first = AreaAt(map, 0, 0)->GetPosition();
  for (int i = 0; i < kMapAreas; ++i) {
    SCOPED_TRACE(i);
    const AreaPosition& position = AreaAt(map, i / kMapEdge, i % kMapEdge)->GetPosition();
    ASSERT_EQ(CountAreasAhead(first, position).x, i / kMapEdge);
    ASSERT_EQ(CountAreasAhead(first, position).y, i % kMapEdge);
    ASSERT_TRUE(IsInRange({position, 0, 0}));
    ASSERT_EQ(position.mByLevel, first.mByLevel);
    ASSERT_EQ(map.GetArea(position), AreaAt(map, i / kMapEdge, i % kMapEdge));
  }
}

// Each field's neighbors are one step away, and missing only where the map ends.
void ExpectPlacedAndLinked(const ClientMap& map) {
  ExpectPlaced(map);
  for (const Field* field : FieldsOf(map)) {
    const FieldPosition position = PositionOf(*field);
    ASSERT_EQ(map.GetField(position), field);
    for (const Direction direction : kDirections) {
      const FieldPosition beside = ToPosition(Next(ToPoint(position), direction));
      ASSERT_EQ(field->GetNeighbor(direction), map.GetField(beside));
    }
  }
}

TEST(ClientMapTest, ShiftKeepsAreasAndBringsInEmptyOnes) {
  for (const Direction direction : kDirections) {
    SCOPED_TRACE(static_cast<std::uint32_t>(direction));
    ClientMap map;
    map.SetMapCoordinatesByCenter({0, 0xFFFFFFFF, 0, 5, -128});
    const Area* before[kMapEdge][kMapEdge];
    for (int i = 0; i < kMapAreas; ++i) {
      Area* area = AreaAt(map, i / kMapEdge, i % kMapEdge);
      area->SetVersion(7);
      before[i / kMapEdge][i % kMapEdge] = area;
    }
    map.ShiftAreas(direction);
    const Step step = StepIn(direction);
    for (int i = 0; i < kMapAreas; ++i) {
      const int r = i / kMapEdge, c = i % kMapEdge;
      const int oldR = r - step.x, oldC = c - step.y;
      const bool isKept = AreaAt(map, oldR, oldC) != nullptr;
      ASSERT_EQ(AreaAt(map, r, c)->GetVersion(), isKept ? 7 : 0);
      ASSERT_TRUE(!isKept || AreaAt(map, r, c) == before[oldR][oldC]);
    }
    ExpectPlacedAndLinked(map);
    for (std::uint32_t turn = 0; turn < 2; ++turn) {
      map.ShiftAreas(kDirections[(static_cast<std::uint32_t>(direction) + 3 * turn) % kDirectionCount]);
      ExpectPlacedAndLinked(map);
    }
  }
}

}  // namespace
}  // namespace tolva::test
