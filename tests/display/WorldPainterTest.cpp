#include "display/GameFixture.h"
#include "display/WorldPainter.h"

namespace tolva::test {
namespace {

using WorldPainterTest = GameFixture;

// For each place of the player: its area on the map, 3 and 3 in the middle, and how far the ground lies from the
// center.
TEST_F(WorldPainterTest, TheGroundFollowsThePlayerAlsoBeforeTheMapDoes) {
  GameGraphics noGraphics(nullptr);
  const WorldPainter painter(*SDL_GetVideoSurface(), noGraphics, mWorld.repository, mWorld.log);
  const struct {
    const char* where;
    Uint8 r, c;
    int x, y;
  } places[] = {{"in the center area", 3, 3, 418, 36}, {"two areas from it", 4, 1, 418 + 912, 36 - 3 * 432}};
  for (const auto& place : places) {
    SCOPED_TRACE(place.where);
    mWorld.player.GetField()->RemoveCharacter();
    mWorld.map.GetAreaAt(place.r, place.c)->GetField(kStart.mByFx, kStart.mByFy)->AddCharacter(&mWorld.player);
    EXPECT_EQ(painter.GetBlitOffsetX(), place.x);
    EXPECT_EQ(painter.GetBlitOffsetY(), place.y);
  }
}

TEST_F(WorldPainterTest, ShowsThingsAndCharactersAndForTenSecondsWhatTheySay) {
  const Field& west = *mWorld.player.GetField()->GetNeighbor(Direction::West);
  mWorld.player.GetField()->GetNeighbor(Direction::East)->SetVoluId(kTree);
  const FieldPosition place{kStart, west.GetFx(), west.GetFy()};
  mWorld.sync.AddChar(PacketAddChar(place));
  EXPECT_TRUE(Matches("silence", kMiddle));
  mWorld.sync.ShowChatMessage({place, "Berta", "Good morning!"});
  EXPECT_TRUE(Matches("speech", kMiddle));
  ClientCharacter::On(west)->SetMessageTick(GetTicks() - 10001);
  EXPECT_TRUE(Matches("silence", kMiddle)) << "the name goes with the message";
}

// What a step South brings into the window is there from its first frame on.
TEST_F(WorldPainterTest, ThingsDoNotPopUpAtTheUpperEdge) {
  SetTickSource([] { return Uint32{5000}; });  // so that both show the same moment
  const SurfacePtr window = MakeWindow(), bare = MakeWindow();
  mWorld.player.StartMove(Direction::South);
  Field* field = mWorld.player.GetField();
  for (int step = 0; step < 15; ++step) field = field->GetNeighbor(Direction::North);
  for (SDL_Surface* shown : {bare.get(), window.get()}) {
    ScreenGame screen(0, shown, nullptr, nullptr, &mWorld.log, &mWorld.repository);
    EndSynchronization(screen, kStart);
    screen.Blit();
    field->SetVoluId(kTree);
  }
  EXPECT_NE(std::memcmp(window->pixels, bare->pixels, std::size_t{45} * window->pitch), 0);
}

}  // namespace
}  // namespace tolva::test
