#include <atomic>
#include <random>
#include <thread>

#include "support/SyncWorld.h"

namespace tolva::test {
namespace {

// A server that sends random packets: mostly for places on the map, so that they change something.
struct RandomServer : SyncWorld {
  RandomServer() { Place({{0, 0xFFFFFFFF, 0, 7, 0}, 0, 23}); }

  void SendOne() {
    const std::uint32_t kind = Random() % 1000;
    if (kind < 3) {
      if (Place(AnyPosition())) ++placements;
    } else if (kind < 300) {
      sync.AddChar(PacketAddChar(AnyPosition()));
    } else if (kind < 500) {
      sync.RemoveChar(PacketRemoveChar(AnyPosition()));
    } else if (kind < 520) {
      sync.ShowChatMessage(PacketGameChatMsg(AnyPosition(), "ann", "hello"));
    } else {
      const Field* field = kind < 620 ? player.GetField() : nullptr;
      const Area* center = map.GetCenterArea();
      const auto direction = static_cast<Direction>(Random() % 16 == 0 ? Random() : Random() % 8);
      sync.MoveChar(PacketMove(field == nullptr ? AnyPosition() : PositionOf(*field), direction));
      if (map.GetCenterArea() != center) ++shifts;
    }
  }

  // Mostly near the edges of areas, where steps cross into others.
  FieldPosition AnyPosition() {
    const auto byte = [&] { return static_cast<std::uint8_t>(Random() >> 8); };
    const auto nearEdge = [&] { return static_cast<std::uint8_t>((kAreaEdge - 3 + Random() % 6) % kAreaEdge); };
    const AreaPosition area = map.GetAreaAt(Random() % kMapEdge, Random() % kMapEdge)->GetPosition();
    const std::uint32_t kind = Random() % 16;
    if (kind == 0) return {{Random(), area.mUintRy, byte(), byte(), static_cast<std::int8_t>(byte())}, byte(), byte()};
    if (kind == 1) return {area, byte(), byte()};
    if (kind == 2) return {{Random(), area.mUintRy, area.mByAx, area.mByAy, area.mByLevel}, nearEdge(), nearEdge()};
    return {area, nearEdge(), nearEdge()};
  }

  // Every character on the map stands on one field and is owned by the map or is the player's.
  void ExpectConsistent() {
    std::size_t standing = 0;
    for (const Field* field : FieldsOf(map)) {
      if (field->GetCharacter() == nullptr) continue;
      ++standing;
      ASSERT_EQ(field->GetCharacter()->GetField(), field);
    }
    const Field* own = player.GetField();
    ASSERT_EQ(standing, map.GetCharacterCount() + (own == nullptr ? 0 : 1));
    ASSERT_TRUE(own == nullptr || own->GetArea() == map.GetCenterArea());
  }

  // Walks the links across the map and animates characters, as the game view does.
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
  RandomServer server;
  for (int i = 1; i <= 200'000; ++i) {
    server.SendOne();
    if (i % 4'000 != 0) continue;
    ASSERT_NO_FATAL_FAILURE(server.ExpectConsistent()) << "after " << i;
  }
  EXPECT_GT(server.shifts, 100) << "the test needs many";
  EXPECT_GT(server.placements, 100) << "the test needs many";
}

TEST(WorldStressTest, CanBeDrawnWhileItChanges) {
  RandomServer server;
  std::atomic<bool> isDone = false;
  std::atomic<int> frames = 0;
  std::thread display([&] {
    for (; !isDone; ++frames, std::this_thread::yield()) EXPECT_GT(server.Draw(), 100u);
  });
  for (int i = 0; i < 10'000 || frames < 50; ++i) server.SendOne();
  isDone = true;
  display.join();
  server.ExpectConsistent();
}

}  // namespace
}  // namespace tolva::test
