#include <atomic>
#include <cstring>
#include <random>
#include <thread>

#include "world/SyncWorld.h"

namespace tolva {
namespace {

using test::At;
using test::PositionOf;
using test::SyncWorld;

// A server that sends whatever it likes: mostly places on the map, so that something happens, and else any bytes.
class WildServer {
 public:
  explicit WildServer(SyncWorld& world) : mWorld(world) { mWorld.Place({{0, 0xFFFFFFFF, 0, 7, 0}, 0, 23}); }

  void SendOne() {
    WorldSynchronizer& sync = mWorld.sync;
    const std::uint32_t kind = mRandom() % 1000;
    if (kind < 3) {
      mPlaced += sync.SynchronizeMap(At<PacketCharPosition>(AnyPosition())) ? 1 : 0;
    } else if (kind < 6) {
      auto ground = std::make_unique<PacketAreaGround>();
      static_cast<AreaPosition&>(*ground) = AnyPosition();
      ground->mUintGround.fill(mRandom());
      ground->mBySmoothness.fill(0xFF);
      sync.UpdateAreaGround(*ground);
      sync.CountAreaAnswer();
    } else if (kind < 300) {
      sync.AddChar(At<PacketAddChar>(AnyPosition()));
    } else if (kind < 500) {
      sync.RemoveChar(At<PacketRemoveChar>(OnMap()));
    } else if (kind < 520) {
      sync.ShowChatMessage(At<PacketGameChatMsg>(AnyPosition()));
    } else {
      const Field* field = mWorld.player.GetField();
      const bool isPlayer = field != nullptr && kind < 620;
      const Area* center = mWorld.map.GetCenterArea();
      sync.MoveChar(At<PacketMove>(isPlayer ? PositionOf(*field) : AnyPosition(), AnyDirection()));
      if (mWorld.map.GetCenterArea() != center) ++mShifts;
    }
    mWorld.toServer.clear();
    mWorld.toDisplay.clear();
  }

  int GetShifts() const { return mShifts; }
  int GetPlacements() const { return mPlaced; }

 private:
  // Near the borders of areas, where steps cross them and characters meet.
  FieldPosition OnMap() {
    const Area* area = mWorld.map.GetAreaAt(mRandom() % 7, mRandom() % 7);
    const auto coordinate = [&] { return static_cast<std::uint8_t>((21 + mRandom() % 6) % 24); };
    return {area->GetPosition(), coordinate(), coordinate()};
  }
  FieldPosition AnyPosition() {
    FieldPosition position = OnMap();
    if (mRandom() % 4 != 0) return position;
    const auto byte = [&] { return static_cast<std::uint8_t>(mRandom() >> 8); };
    if (mRandom() % 2 == 0) position.mUintRx = mRandom();
    if (mRandom() % 2 == 0) position.mByAx = byte();
    if (mRandom() % 2 == 0) position.mByAy = byte();
    if (mRandom() % 2 == 0) position.mByFx = byte();
    if (mRandom() % 2 == 0) position.mByFy = byte();
    if (mRandom() % 8 == 0) position.mByLevel = static_cast<std::int8_t>(byte());
    return position;
  }
  Direction AnyDirection() { return static_cast<Direction>(mRandom() % 16 == 0 ? mRandom() : mRandom() % 8); }

  SyncWorld& mWorld;
  std::mt19937 mRandom{20240607};
  int mShifts = 0;
  int mPlaced = 0;
};

// Each character stands on exactly one field, and nobody stands there who is not the map's or the player's.
void ExpectSound(SyncWorld& world) {
  std::size_t standing = 0;
  for (std::uint8_t i = 0; i < 49; ++i) {
    for (const Field& field : world.map.GetAreaAt(i / 7, i % 7)->GetFields()) {
      if (field.GetCharacter() == nullptr) continue;
      ++standing;
      ASSERT_EQ(field.GetCharacter()->GetField(), &field);
    }
  }
  const bool isPlayerStanding = world.player.GetField() != nullptr;
  ASSERT_EQ(standing, world.map.GetCharacterCount() + (isPlayerStanding ? 1 : 0));
  if (isPlayerStanding) {
    ASSERT_EQ(world.player.GetField()->GetArea(), world.map.GetCenterArea());
  }
}

TEST(WorldStressTest, SurvivesAnythingAServerSends) {
  SyncWorld world;
  WildServer server(world);
  for (int i = 1; i <= 200'000; ++i) {
    server.SendOne();
    if (i % 4'000 == 0) {
      ASSERT_NO_FATAL_FAILURE(ExpectSound(world)) << "after " << i;
    }
  }
  EXPECT_GT(server.GetShifts(), 100) << "or the test did not test much";
  EXPECT_GT(server.GetPlacements(), 100);
}

// As the game view does: walk the links from the player's field, animate and read whoever stands there.
std::size_t Draw(SyncWorld& world) {
  const SemaphoreLock lock(world.repository);
  std::size_t seen = 0;
  const Field* rowStart = world.map.GetAreaAt(2, 2)->GetField(0, 0);
  while (rowStart != nullptr && seen < 4'000) {
    for (const Field* field = rowStart; field != nullptr; field = field->GetNeighbor(Direction::East)) {
      seen += 1 + field->GetGroundId() % 1 + field->GetVoluId() % 1;
      ClientCharacter* character = ClientCharacter::On(*field);
      if (character == nullptr) continue;
      character->Animate();
      seen += std::strlen(character->GetChatMessage()) % 1;
    }
    rowStart = rowStart->GetNeighbor(Direction::NorthEast);
  }
  return seen;
}

TEST(WorldStressTest, CanBeDrawnWhileItChanges) {
  SyncWorld world;
  WildServer server(world);
  std::atomic<bool> isDone = false;
  std::atomic<int> frames = 0;
  std::thread display([&] {
    while (!isDone) {
      EXPECT_GT(Draw(world), 100u);
      ++frames;
      std::this_thread::yield();
    }
  });
  for (int i = 0; i < 10'000 || frames < 50; ++i) server.SendOne();
  isDone = true;
  display.join();
  ExpectSound(world);
}

}  // namespace
}  // namespace tolva
