#include <gtest/gtest.h>

#include "world/ClientMap.h"

namespace tolva {
namespace {

constexpr int kStepX[] = {-1, 0, 1, 1, 1, 0, -1, -1};
constexpr int kStepY[] = {1, 1, 1, 0, -1, -1, -1, 0};

// Null outside the map.
Area* AreaAt(const ClientMap& map, int r, int c) {
  return r < 0 || c < 0 ? nullptr : map.GetAreaAt(static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(c));
}

Field* FieldAt(const ClientMap& map, int x, int y) {
  Area* area = x < 0 || y < 0 ? nullptr : AreaAt(map, x / 24, y / 24);
  return area == nullptr ? nullptr : &area->GetFields()[static_cast<std::size_t>(x % 24 * 24 + y % 24)];
}

// Each area lies in the world where the centre says, over the borders of regions.
void ExpectPlaced(const ClientMap& map) {
  const AreaPosition center = map.GetCenterArea()->GetPosition();
  const auto number = [](std::uint32_t region, int area) { return (std::uint64_t{region} * 8 + area) % (8ull << 32); };
  for (int i = 0; i < 49; ++i) {
    const AreaPosition& position = AreaAt(map, i / 7, i % 7)->GetPosition();
    ASSERT_EQ(number(position.mUintRx, position.mByAx + 3), number(center.mUintRx, center.mByAx + i / 7));
    ASSERT_EQ(number(position.mUintRy, position.mByAy + 3), number(center.mUintRy, center.mByAy + i % 7));
    ASSERT_TRUE(position.mByAx < 8 && position.mByAy < 8 && position.mByLevel == center.mByLevel);
    ASSERT_EQ(map.GetArea(position), AreaAt(map, i / 7, i % 7));
  }
}

// Each field's neighbours lie one step away, and are missing only where the map ends.
void ExpectLinked(const ClientMap& map) {
  for (int i = 0; i < 168 * 168; ++i) {
    const Field* field = FieldAt(map, i / 168, i % 168);
    ASSERT_EQ(field->GetArea()->GetField(field->GetFx(), field->GetFy()), field);
    for (int d = 0; d < 8; ++d) {
      ASSERT_EQ(field->GetNeighbor(static_cast<Direction>(d)), FieldAt(map, i / 168 + kStepX[d], i % 168 + kStepY[d]));
    }
  }
}

TEST(ClientMapTest, ShiftsKeptAreasAndBringsInEmptyOnes) {
  for (int d = 0; d < 8; ++d) {
    SCOPED_TRACE(d);
    ClientMap map;
    map.SetMapCoordinatesByCenter({0, 0xFFFFFFFF, 0, 5, -128});
    Area* before[7][7];
    for (int i = 0; i < 49; ++i) {
      before[i / 7][i % 7] = AreaAt(map, i / 7, i % 7);
      before[i / 7][i % 7]->SetVersion(7);
    }
    map.ShiftAreas(static_cast<Direction>(d));
    for (int i = 0; i < 49; ++i) {
      const int oldR = i / 7 - kStepX[d];
      const int oldC = i % 7 - kStepY[d];
      if (oldR >= 0 && oldR < 7 && oldC >= 0 && oldC < 7) {
        ASSERT_EQ(AreaAt(map, i / 7, i % 7), before[oldR][oldC]);
      } else {
        ASSERT_EQ(AreaAt(map, i / 7, i % 7)->GetVersion(), 0);
      }
    }
    for (int i = 0; i < 5; ++i) map.ShiftAreas(static_cast<Direction>((d + 3 * i) % 8));
    ExpectPlaced(map);
    ExpectLinked(map);
  }
}

}  // namespace
}  // namespace tolva
