#include <random>
#include <thread>

#include "display/GameFixture.h"

namespace tolva::test {
namespace {

class ScreenGameTest : public GameFixture {
 protected:
  void Say(int first, int last) {
    for (int n = first; n <= last; ++n) Screen().HandlePacket(new PacketChatMsg("Anna", std::to_string(n).c_str()));
  }
};

TEST_F(ScreenGameTest, MoveKeysAskForOneStepAtATime) {
  // Not all directions have an arrow.
  const std::pair<SDLKey, Direction> keys[] = {
      {SDLK_KP8, Direction::North}, {SDLK_UP, Direction::North},   {SDLK_KP9, Direction::NorthEast},
      {SDLK_KP6, Direction::East},  {SDLK_RIGHT, Direction::East}, {SDLK_KP3, Direction::SouthEast},
      {SDLK_KP2, Direction::South}, {SDLK_DOWN, Direction::South}, {SDLK_KP1, Direction::SouthWest},
      {SDLK_KP4, Direction::West},  {SDLK_LEFT, Direction::West},  {SDLK_KP7, Direction::NorthWest}};
  for (const auto& [key, direction] : keys) {
    SCOPED_TRACE(SDL_GetKeyName(key));
    Press(key);
    EXPECT_EQ(NextSent<PacketMoveRequest>().mEnmDirection, direction);
    Press(key);
    EXPECT_TRUE(Sent().empty()) << "a held key waits for the answer";
    mWorld.player.StartMove(Direction::South);
    for (const Uint8 type : {SDL_KEYDOWN, SDL_KEYUP, SDL_KEYDOWN}) Press(key, type);
    EXPECT_TRUE(Sent().empty()) << "no step before the last one has ended";
    EndSlide();
    Press(key);
    EXPECT_EQ(Sent(), Codes{PacketMoveRequest::kCode});
    Press(key, SDL_KEYUP);
  }
}

TEST_F(ScreenGameTest, AHeldKeyWaitsForItsAnswerAndForTheWorld) {
  static Uint32 sNow;
  sNow = GetTicks();
  SetTickSource([] { return sNow; });
  Press(SDLK_UP);
  EXPECT_EQ(Sent().size(), 1u);
  for (const auto& [later, requests] : {std::pair{999u, 0u}, {1u, 1u}, {999u, 0u}}) {
    sNow += later;
    Press(SDLK_UP);
    EXPECT_EQ(Sent().size(), requests) << "a second without an answer is a refusal";
  }
  sNow += 1000;
  Deliver(PacketInternStatus(0, kMapAreas));
  Press(SDLK_UP);
  EXPECT_TRUE(Sent().empty()) << "the progress hides where the held key leads";
  Press(SDLK_UP, SDL_KEYUP);
  Press(SDLK_UP);
  EXPECT_EQ(Sent().size(), 1u) << "a fresh press asks";
}

TEST_F(ScreenGameTest, ReturnSaysWhatWasTyped) {
  Type("\rhi 5");
  Press(SDLK_KP_ENTER);
  EXPECT_STREQ(NextSent<PacketChatMsg>().mStrMsg, "hi 5");
  Type("\r");
  EXPECT_TRUE(Sent().empty()) << "the line is empty";
}

TEST_F(ScreenGameTest, EscapeAsksToLeaveAndQuitsWhenNobodyCanAnswer) {
  Type("\x1b");
  EXPECT_EQ(Sent(), Codes{PacketEnterChatRequest::kCode});
  Deliver(PacketInternStatus(7, kMapAreas));
  Deliver(PacketInternConnectionLost());
  EXPECT_NE(Ground(), kBlack) << "the rest of the world will not come";
  Type("\x1b");
  EXPECT_EQ(Sent(), (Codes{PacketEnterChatRequest::kCode, PacketQuit::kCode}));
}

TEST_F(ScreenGameTest, ShowsTheProgressAndThenTheWorldInItsLight) {
  const Rgb light = Ground();
  Deliver(PacketInternStatus(20, kMapAreas));
  Deliver(PacketDarkness(128));
  EXPECT_TRUE(Matches("progress", kMiddle));
  Deliver(PacketInternStatus(0, 0));
  EXPECT_NEAR(Ground().g, light.g / 2, 8);
}

TEST_F(ScreenGameTest, ShowsABluePixelForEachMillisecondOfTheRoundTrip) {
  for (const auto& [milliseconds, blue] : {std::pair{30u, 30}, {0u, 0}, {65536u + 399, 399}, {0xFFFFFFFFu, 400}}) {
    Deliver(PacketInternPong(milliseconds));
    for (int x = 0; x < 400; ++x) ASSERT_EQ(PixelAt(400 + x, 595).b != 0, x < blue) << milliseconds << " at " << x;
  }
}

TEST_F(ScreenGameTest, ShowsNothingOfTheWorldBeforeItsGround) {
  const PacketDarkness dusk(30);
  const PacketInternStatus end(kMapAreas, kMapAreas);
  for (const Packet* ground : {static_cast<const Packet*>(&dusk), static_cast<const Packet*>(&end)}) {
    Deliver(PacketEnterGameAccept());
    mDisplay->RunPass();
    EXPECT_EQ(Ground(), kBlack);
    EXPECT_EQ(PixelAt(400, 270), kBlack) << "the player stands there";
    EXPECT_NE(PixelAt(400, 546), kBlack) << "the panel of what was said";
    Deliver(*ground);
    EXPECT_NE(Ground(), kBlack);
  }
}

TEST_F(ScreenGameTest, TheHistoryGrowsShrinksAndScrolls) {
  const Rect panels[] = {{42, 545, 758, 19}, {42, 497, 758, 67}, {42, 299, 758, 265}};  // to the right of the time
  Say(1, 2);
  EXPECT_TRUE(Matches("history-line", panels[0]));
  const std::string wide = "Come along, we can walk from the market to the water and be back before it is dark; does ";
  Screen().HandlePacket(new PacketChatMsg(kServerSpeaker, (wide + wide).c_str()));
  // Where the buttons are clicked, and the size that follows; enlarging and shrinking stop at the ends.
  const std::pair<int, int> steps[] = {{0, 0}, {554, 1}, {506, 2}, {308, 2}, {556, 1}, {556, 0}, {572, 0}};
  for (const auto& [y, size] : steps) {
    Click(790, y);
    EXPECT_TRUE(Matches("history" + std::to_string(size), panels[size])) << y;
  }
  for (const auto& [button, golden] :
       {std::pair{SDL_BUTTON_WHEELUP, "history-line"}, {SDL_BUTTON_WHEELDOWN, "history0"}}) {
    Click(300, 550, button);
    EXPECT_TRUE(Matches(golden, panels[0])) << "the one line goes from message to message";
  }
  Click(790, 554);
  Say(3, 13);
  // Buttons and notches; the last two notches are not over the panel. Eight rows back a message is cut at the top.
  const std::pair<int, int> turns[] = {
      {520, SDL_BUTTON_LEFT},    {520, SDL_BUTTON_LEFT},      {520, SDL_BUTTON_LEFT},    {520, SDL_BUTTON_WHEELUP},
      {498, SDL_BUTTON_WHEELUP}, {562, SDL_BUTTON_WHEELDOWN}, {520, SDL_BUTTON_WHEELUP}, {538, SDL_BUTTON_LEFT},
      {496, SDL_BUTTON_WHEELUP}, {564, SDL_BUTTON_WHEELUP}};
  for (const auto& [y, button] : turns) Click(790, y, button);
  EXPECT_TRUE(Matches("history-back", panels[1]));
  Say(14, 16);
  EXPECT_TRUE(Matches("history-back", panels[1])) << "new lines do not move what the player reads";
  Say(17, 303);
  for (int i = 0; i < 200; ++i) Click(790, 520);
  EXPECT_TRUE(Matches("history-oldest", panels[1])) << "200 are kept: from 104 on";
}

// Meanwhile the controller's thread moves people, lets them speak and lets the player walk past any picture.
TEST_F(ScreenGameTest, CanBeDrawnWhileTheWorldChanges) {
  const Uint32 ids[] = {0, 1, kGround, kTree, kPictureCharacters, kPictureProgressBar, 0xFFFFFFFF, kGround + 16};
  Uint32 count = 0;
  for (Field& field : mWorld.map.GetCenterArea()->GetFields()) field.SetVoluId(ids[count++ % 8]);
  std::jthread controller([&](const std::stop_token& stop) {
    std::mt19937 random(7);
    const AreaPosition area = kStart;
    while (!stop.stop_requested()) {
      const FieldPosition place{area, Uint8(random() % kAreaEdge), 23};
      std::string text(random() % 1023, ' ');
      for (char& character : text) character = char(random() % 255 + 1);
      const PacketGameChatMsg speech(place, "", text.c_str());
      mWorld.sync.AddChar(PacketAddChar(place));
      mWorld.sync.ShowChatMessage(speech);
      Put(speech);
      mWorld.sync.MoveChar({{area, kStart.mByFx, Uint8(count++ % kAreaEdge)}, Direction::NorthEast});
    }
  });
  for (int frame = 0; frame < 60; ++frame) {
    if (frame % 10 == 0) Screen().HandlePacket(new PacketInternStatus(kMapAreas, kMapAreas));
    Press(SDLK_UP, frame % 2 == 0 ? SDL_KEYDOWN : SDL_KEYUP);
  }
  controller = {};  // stops it and waits
  EXPECT_EQ(ReadFile("log.clf").find("At tick"), std::string::npos) << "an error was reported";
}

TEST_F(ScreenGameTest, ReleasesTheWorldAfterAnErrorWhileDrawing) {
  SDL_Surface& window = *SDL_GetVideoSurface();
  SDL_LockSurface(&window);  // nothing can be drawn onto a locked surface
  window.flags |= SDL_ASYNCBLIT;
  ErrHandler reporter;
  EXPECT_FALSE(Report(reporter, "", "", [&] { Screen().Blit(); }));
  window.flags &= ~Uint32{SDL_ASYNCBLIT};
  SDL_UnlockSurface(&window);
  const SemaphoreLock lock(mWorld.repository);  // waits for ever if the error left it held
}

}  // namespace
}  // namespace tolva::test
