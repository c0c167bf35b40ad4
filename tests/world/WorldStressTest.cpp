#include <atomic>
#include <random>
#include <thread>

#include "world/SyncWorld.h"

namespace tolva {
namespace {

using test::At;

// A server that sends whatever it likes: mostly places on the map, so that something happens, and else any bytes.
struct WildServer : test::SyncWorld {
  WildServer() { Place({{0, 0xFFFFFFFF, 0, 7, 0}, 0, 23}); }

  void SendOne() {
    const std::uint32_t kind = Random() % 1000;
    if (kind < 3) {
      if (Place(AnyPosition())) ++placements;
    } else if (kind < 300) {
      sync.AddChar(At<PacketAddChar>(AnyPosition()));
    } else if (kind < 500) {
      sync.RemoveChar(At<PacketRemoveChar>(AnyPosition()));
    } else if (kind < 520) {
      sync.ShowChatMessage(At<PacketGameChatMsg>(AnyPosition()));
    } else {
      const Field* field = kind < 620 ? player.GetField() : nullptr;
      const Area* center = map.GetCenterArea();
      sync.MoveChar(At<PacketMove>(field == nullptr ? AnyPosition() : PositionOf(*field), AnyDirection()));
      if (map.GetCenterArea() != center) ++shifts;
    }
  }

  static FieldPosition PositionOf(const Field& field) {
    return {field.GetArea()->GetPosition(), field.GetFx(), field.GetFy()};
  }
  // Mostly near the borders of areas, where steps cross them and characters meet.
  FieldPosition AnyPosition() {
    const auto byte = [&] { return static_cast<std::uint8_t>(Random() >> 8); };
    const auto border = [&] { return static_cast<std::uint8_t>((21 + Random() % 6) % 24); };
    const AreaPosition area = map.GetAreaAt(Random() % 7, Random() % 7)->GetPosition();
    const std::uint32_t kind = Random() % 16;
    if (kind == 0) return {{Random(), area.mUintRy, byte(), byte(), static_cast<std::int8_t>(byte())}, byte(), byte()};
    if (kind == 1) return {area, byte(), byte()};
    if (kind == 2) return {{Random(), area.mUintRy, area.mByAx, area.mByAy, area.mByLevel}, border(), border()};
    return {area, border(), border()};
  }
  Direction AnyDirection() { return static_cast<Direction>(Random() % 16 == 0 ? Random() : Random() % 8); }

  // Each character stands on exactly one field, and nobody stands there who is not the map's or the player's.
  void ExpectSound() {
    std::size_t standing = 0;
    for (std::uint8_t i = 0; i < 49; ++i) {
      for (const Field& field : map.GetAreaAt(i / 7, i % 7)->GetFields()) {
        if (field.GetCharacter() == nullptr) continue;
        ++standing;
        ASSERT_EQ(field.GetCharacter()->GetField(), &field);
      }
    }
    const Area* playersArea = player.GetField() == nullptr ? nullptr : player.GetField()->GetArea();
    ASSERT_EQ(standing, map.GetCharacterCount() + (playersArea == nullptr ? 0 : 1));
    ASSERT_TRUE(playersArea == nullptr || playersArea == map.GetCenterArea());
  }

  // As the game view does: walk the links across the map, animate whoever stands there.
  std::size_t Draw() {
    const SemaphoreLock lock(repository);
    std::size_t seen = 0;
    const Field* row = map.GetAreaAt(2, 2)->GetField(0, 0);
    for (; row != nullptr && seen < 4'000; row = row->GetNeighbor(Direction::NorthEast)) {
      for (const Field* field = row; field != nullptr; field = field->GetNeighbor(Direction::East)) {
        ++seen;
        if (ClientCharacter* character = ClientCharacter::On(*field)) character->Animate();
      }
    }
    return seen;
  }

  std::uint32_t Random() { return static_cast<std::uint32_t>(generator()); }

  std::mt19937 generator{20240607};
  int shifts = 0;
  int placements = 0;
};

TEST(WorldStressTest, SurvivesAnythingAServerSends) {
  WildServer server;
  for (int i = 1; i <= 200'000; ++i) {
    server.SendOne();
    if (i % 4'000 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(server.ExpectSound()) << "after " << i;
  }
  EXPECT_GT(server.shifts, 100) << "or the test did not test much";
  EXPECT_GT(server.placements, 100);
}

TEST(WorldStressTest, CanBeDrawnWhileItChanges) {
  WildServer server;
  std::atomic<bool> isDone = false;
  std::atomic<int> frames = 0;
  std::thread display([&] {
    for (; !isDone; ++frames, std::this_thread::yield()) EXPECT_GT(server.Draw(), 100u);
  });
  for (int i = 0; i < 10'000 || frames < 50; ++i) server.SendOne();
  isDone = true;
  display.join();
  server.ExpectSound();
}

}  // namespace
}  // namespace tolva
