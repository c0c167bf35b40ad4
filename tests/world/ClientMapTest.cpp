#include <random>

#include <gtest/gtest.h>

#include "world/ClientCharacter.h"
#include "world/ClientMap.h"
#include "world/Steps.h"

namespace tolva {
namespace {

// Areas counted through all regions; the count wraps as the region numbers do.
std::uint64_t CountX(const AreaPosition& p) { return std::uint64_t{p.mUintRx} * 8 + p.mByAx; }
std::uint64_t CountY(const AreaPosition& p) { return std::uint64_t{p.mUintRy} * 8 + p.mByAy; }

void ExpectPlaced(const ClientMap& map) {
  constexpr std::uint64_t kAround = std::uint64_t{8} << 32;
  const AreaPosition center = map.GetCenterArea()->GetPosition();
  for (std::uint8_t r = 0; r < 7; ++r) {
    for (std::uint8_t c = 0; c < 7; ++c) {
      const AreaPosition& position = map.GetAreaAt(r, c)->GetPosition();
      ASSERT_EQ(CountX(position), (CountX(center) + r + kAround - 3) % kAround);
      ASSERT_EQ(CountY(position), (CountY(center) + c + kAround - 3) % kAround);
      ASSERT_LT(position.mByAx, 8);
      ASSERT_LT(position.mByAy, 8);
      ASSERT_EQ(position.mByLevel, center.mByLevel);
      ASSERT_EQ(map.GetArea(position), map.GetAreaAt(r, c));
    }
  }
}

// Each field's neighbours lie one step away in the grid, are mutual, and are missing only where the map ends.
void ExpectLinked(const ClientMap& map) {
  const auto fieldAt = [&](int x, int y) -> Field* {
    if (x < 0 || y < 0 || x >= 168 || y >= 168) return nullptr;
    Area* area = map.GetAreaAt(static_cast<std::uint8_t>(x / 24), static_cast<std::uint8_t>(y / 24));
    return area->GetField(static_cast<std::uint8_t>(x % 24), static_cast<std::uint8_t>(y % 24));
  };
  constexpr int kStepX[] = {-1, 0, 1, 1, 1, 0, -1, -1};
  constexpr int kStepY[] = {1, 1, 1, 0, -1, -1, -1, 0};
  for (int x = 0; x < 168; ++x) {
    for (int y = 0; y < 168; ++y) {
      Field* field = fieldAt(x, y);
      ASSERT_EQ(field->GetArea()->GetField(field->GetFx(), field->GetFy()), field);
      for (std::uint32_t d = 0; d < 8; ++d) {
        Field* next = field->GetNeighbor(static_cast<Direction>(d));
        ASSERT_EQ(next, fieldAt(x + kStepX[d], y + kStepY[d])) << x << ' ' << y << ' ' << d;
        if (next != nullptr) {
          ASSERT_EQ(next->GetNeighbor(static_cast<Direction>((d + 4) % 8)), field);
        }
      }
    }
  }
}

TEST(ClientMapTest, PlacesAllAreasAroundTheCentre) {
  ClientMap map;
  ExpectLinked(map);
  map.SetMapCoordinatesByCenter({10, 20, 0, 7, 2});
  EXPECT_EQ(map.GetArea({9, 21, 5, 2, 2}), map.GetAreaAt(0, 6));
  EXPECT_EQ(map.GetAreaAt(7, 0), nullptr);
  for (const std::uint32_t region : {0u, 1u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    for (std::uint8_t area = 0; area < 8; ++area) {
      map.SetMapCoordinatesByCenter({region, ~region, area, static_cast<std::uint8_t>(7 - area), -128});
      ExpectPlaced(map);
    }
  }
}

TEST(ClientMapTest, ShiftsKeptAreasAndBringsInEmptyOnes) {
  struct Case {
    std::uint32_t direction;
    int dr, dc;
  };
  constexpr Case kCases[] = {{0, -1, 1},  {1, 0, 1},  {2, 1, 1}, {3, 1, 0},  {4, 1, -1},        {5, 0, -1},
                             {6, -1, -1}, {7, -1, 0}, {8, 0, 0}, {64, 0, 0}, {0xFFFFFFFF, 0, 0}};
  std::minstd_rand random(1);
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.direction);
    ClientMap map;
    map.SetMapCoordinatesByCenter({3, 4, 0, 7, 5});
    Area* before[7][7];
    for (std::uint8_t r = 0; r < 7; ++r) {
      for (std::uint8_t c = 0; c < 7; ++c) {
        before[r][c] = map.GetAreaAt(r, c);
        before[r][c]->SetVersion(7);
        map.AddCharacter(*before[r][c]->GetField(r, c), std::make_unique<ClientCharacter>());
      }
    }
    map.ShiftAreas(static_cast<Direction>(each.direction));
    std::size_t kept = 0;
    for (int r = 0; r < 7; ++r) {
      for (int c = 0; c < 7; ++c) {
        const int oldR = r - each.dr, oldC = c - each.dc;
        Area* area = map.GetAreaAt(static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(c));
        if (oldR >= 0 && oldR < 7 && oldC >= 0 && oldC < 7) {
          ++kept;
          ASSERT_EQ(area, before[oldR][oldC]);
        } else {
          ASSERT_EQ(area->GetVersion(), 0);
          ASSERT_EQ(area->GetField(0, 0)->GetGroundId(), 100000u);
        }
      }
    }
    EXPECT_EQ(map.GetCharacterCount(), kept) << "one stood on each area";
    ExpectPlaced(map);
    for (int i = 0; i < 5; ++i) map.ShiftAreas(static_cast<Direction>(random() % 8));
    ExpectPlaced(map);
    ExpectLinked(map);
  }
}

TEST(ClientMapTest, KeepsTheCharactersThatItDoesNotOwn) {
  ClientCharacter player;
  ClientMap map;
  map.GetCenterArea()->GetField(1, 1)->AddCharacter(&player);
  for (int i = 0; i < 4; ++i) map.ShiftAreasToNorthEast();
  EXPECT_EQ(player.GetField(), nullptr) << "its area fell out";
  map.GetCenterArea()->GetField(1, 1)->AddCharacter(&player);
  map.ResetArea(7, 0);
  EXPECT_NE(player.GetField(), nullptr);
  map.ResetArea(3, 3);
  EXPECT_EQ(player.GetField(), nullptr);
}

}  // namespace
}  // namespace tolva
