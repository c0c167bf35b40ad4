#include <deque>
#include <random>
#include <thread>

#include "display/DisplayFixture.h"
#include "display/ScreenGame.h"
#include "foundation/Ticks.h"
#include "protocol/FieldPosition.h"
#include "support/Golden.h"
#include "support/SyncWorld.h"

namespace tolva::test {
namespace {

constexpr std::uint32_t kGround = 0x1000, kTree = 0x2000;
constexpr FieldPosition kStart{{4, 5, 7, 3, 0}, 5, 7};

// `color(x, y)` is 0 where the picture is see-through, else one of 44 colours.
template <typename Color>
std::string MakeShape(Uint32 width, Uint32 height, Color&& color) {
  TestPicture shape{width, height, PngColor::Palette, 8, {255, 0, 255}, {0}};
  for (int i = 1; i < 45; ++i) shape.palette.insert(shape.palette.end(), {Uint8(i * 67), Uint8(i * 97), Uint8(i * 41)});
  for (Uint32 i = 0; i < width * height; ++i) shape.samples.push_back(Uint8(color(int(i % width), int(i / width))));
  return MakePng(shape);
}

Entries GamePictures() {
  Entries entries = OnlyTheFont();
  for (int i = 0; i < 4; ++i) {
    entries[kGround + 16u * Uint32(i)] = entries[kDefaultGroundId] =
        MakeShape(76, 37, [i](int x, int y) { return 2 * std::abs(y - 18) <= std::min(x, 75 - x) + 1 ? 1 + i : 0; });
    entries[kPictureHistoryBack + Uint32(i)] = MakeShape(16, 32, [i](int, int y) { return 5 + 2 * i + y / 16; });
  }
  entries[kTree] = MakeShape(76, 228, [](int x, int y) { return std::abs(x - 38) <= y / 6 && y < 210 ? 9 : 0; });
  entries[kPictureCharacters] =
      MakeShape(380, 912, [](int x, int y) { return std::abs(x % 76 - 38) > 12 ? 0 : 1 + x / 76 + 5 * (y / 114); });
  entries[kPictureProgressFrame] = MakeShape(300, 60, [](int x, int y) { return y < 30 || x < 4 ? 3 : 0; });
  entries[kPictureProgressBar] = MakeShape(300, 16, [](int, int) { return 7; });
  entries[kPictureHistoryTop] = entries[kPictureHistorySide] = MakeShape(2, 2, [](int, int) { return 8; });
  return entries;
}

class ScreenGameTest : public DisplayFixture {
 protected:
  void SetUp() override {
    Start(GamePictures());
    Deliver(new PacketInternRepository(&mWorld.repository));
    Deliver(new PacketEnterGameAccept);
    Place(Screen(), kStart);
    mDisplay->RunPass();
  }
  ScreenGame& Screen() { return dynamic_cast<ScreenGame&>(*mDisplay->GetScreen()); }
  // As after a synchronisation: every field has its ground, and the screen has drawn it.
  void Place(ScreenGame& screen, const FieldPosition& position) {
    ASSERT_TRUE(mWorld.Place(position));
    for (Uint8 i = 0; i < 49; ++i) {
      for (Field& field : mWorld.map.GetAreaAt(i / 7, i % 7)->GetFields()) {
        field.SetGroundId(kGround + (field.GetFx() / 3 * 31 + field.GetFy() / 4 * 17 + i) % 4 * 16);
        field.SetSmoothness(Uint8(field.GetFx() + i));
      }
    }
    Show(screen, position);
  }
  static void Show(ScreenGame& screen, const FieldPosition& position) {
    screen.HandlePacket(PacketCharPosition(position).Clone());
    screen.HandlePacket(new PacketInternStatus(49, 49));
  }
  void Press(SDLKey key, Uint8 type = SDL_KEYDOWN) {
    SDL_Event event{type};
    event.key.keysym.sym = key;
    EXPECT_EQ(SDL_PushEvent(&event), 0);
    mDisplay->RunPass();
  }
  void EndSlide() {
    for (Uint32 now = GetTicks(); mWorld.player.IsMoving();) mWorld.player.Animate(now += 20);
  }
  void Say(int first, int last) {
    for (int n = first; n <= last; ++n) Screen().HandlePacket(new PacketChatMsg("Anna", std::to_string(n).c_str()));
  }
  auto Matches(const std::string& golden, const Rect& part = {250, 140, 300, 260}) {
    mDisplay->RunPass();
    return MatchesGolden(golden, *SDL_GetVideoSurface(), part);
  }
  static SurfacePtr MakeWindow() { return SurfacePtr(SDL_CreateRGBSurface(0, 1280, 1024, 16, 0xF800, 0x7E0, 0x1F, 0)); }
  static Rgb Ground() { return PixelAt(400, 330); }  // below the player's feet

  SyncWorld mWorld;
};

TEST_F(ScreenGameTest, ShowsTheWorldAroundThePlayerAndWhatIsSaid) {
  EXPECT_EQ(std::pair(Screen().GetBlitOffsetX(), Screen().GetBlitOffsetY()), std::pair(418, 36));
  Field& home = *mWorld.player.GetField();
  home.RemoveCharacter();
  mWorld.map.GetAreaAt(4, 1)->GetField(5, 7)->AddCharacter(&mWorld.player);  // the map has not followed
  EXPECT_EQ(std::pair(Screen().GetBlitOffsetX(), Screen().GetBlitOffsetY()), std::pair(418 + 912, 36 - 3 * 432));
  mWorld.player.GetField()->RemoveCharacter();
  home.AddCharacter(&mWorld.player);
  Field& west = *mWorld.player.GetField()->GetNeighbor(Direction::West);
  mWorld.player.GetField()->GetNeighbor(Direction::East)->SetVoluId(kTree);
  const PacketGameChatMsg speech({kStart, west.GetFx(), west.GetFy()}, "Berta", "Good morning!");
  mWorld.sync.AddChar(PacketAddChar(speech));
  EXPECT_TRUE(Matches("silence"));
  mWorld.sync.ShowChatMessage(speech);
  EXPECT_TRUE(Matches("speech"));
  ClientCharacter::On(west)->SetMessageTick(GetTicks() - 10001);
  EXPECT_TRUE(Matches("silence")) << "what was said ten seconds ago is gone, and the name with it";
}

TEST_F(ScreenGameTest, KeysAskForStepsSpeakAndLeave) {
  // From North on, clockwise; not all have an arrow.
  const SDLKey keys[] = {SDLK_KP8, SDLK_UP,   SDLK_KP9, SDLK_KP9, SDLK_KP6, SDLK_RIGHT, SDLK_KP3, SDLK_KP3,
                         SDLK_KP2, SDLK_DOWN, SDLK_KP1, SDLK_KP1, SDLK_KP4, SDLK_LEFT,  SDLK_KP7, SDLK_KP7};
  for (Uint32 i = 0; i < 16; ++i) {
    Press(keys[i]);
    EXPECT_EQ(NextSent<PacketMoveRequest>().mEnmDirection, static_cast<Direction>(i / 2));
    Press(keys[i]);
    EXPECT_TRUE(Sent().empty()) << "a held key waits for the answer";
    mWorld.player.StartMove(Direction::South);
    for (const Uint8 type : {SDL_KEYDOWN, SDL_KEYUP, SDL_KEYDOWN}) Press(keys[i], type);
    EXPECT_TRUE(Sent().empty()) << "no step before the last one has ended";
    EndSlide();
    Press(keys[i]);
    EXPECT_EQ(Sent().size(), 1u);
    Press(keys[i], SDL_KEYUP);
  }
  Type("\rhi 5");
  Press(SDLK_KP_ENTER);
  EXPECT_STREQ(NextSent<PacketChatMsg>().mStrMsg, "hi 5");
  Type("\r");
  Type("\x1b");
  EXPECT_EQ(Sent().size(), 1u);
  Deliver(new PacketInternStatus(7, 49));
  Deliver(new PacketInternConnectionLost);
  EXPECT_NE(Ground(), (Rgb{0, 0, 0})) << "no use in waiting for the rest";
  Type("\x1b");
  EXPECT_EQ(Sent(), (std::vector<PacketCode>{PacketEnterChatRequest::kCode, PacketQuit::kCode}));
}

TEST_F(ScreenGameTest, ShowsProgressThenTheWorldInItsLightAndTheRoundTripTime) {
  const Rgb light = Ground();
  PacketDarkness dusk;
  dusk.mByDarkness = 128;
  Deliver(new PacketInternStatus(20, 49));
  Deliver(dusk.Clone());
  EXPECT_TRUE(Matches("progress"));
  Deliver(new PacketInternStatus(0, 0));
  EXPECT_NEAR(Ground().g, light.g / 2, 8);
  for (const auto& [milliseconds, blue] : {std::pair{30u, 30}, {0u, 0}, {65536u + 399, 399}, {0xFFFFFFFFu, 400}}) {
    Deliver(new PacketInternPong(milliseconds));
    for (int x = 0; x < 400; ++x) ASSERT_EQ(PixelAt(400 + x, 595).b != 0, x < blue) << milliseconds << " at " << x;
  }
}

TEST_F(ScreenGameTest, TheHistoryGrowsShrinksAndScrolls) {
  const Rect panels[] = {{42, 545, 758, 19}, {42, 497, 758, 67}, {42, 299, 758, 265}};  // behind the time
  Say(1, 2);
  EXPECT_TRUE(Matches("history-line", panels[0]));
  const std::string wide = "Come along, we can walk from the market to the water and be back before it is dark; does ";
  Screen().HandlePacket(new PacketChatMsg("*** ", (wide + wide).c_str()));
  // Where the buttons are clicked, and the size that follows; enlarging and shrinking stop at the ends.
  const std::pair<int, int> steps[] = {{0, 0}, {554, 1}, {506, 2}, {308, 2}, {556, 1}, {556, 0}, {572, 0}};
  for (const auto& [y, size] : steps) {
    Click(790, y);
    EXPECT_TRUE(Matches("history" + std::to_string(size), panels[size])) << y;
  }
  for (const auto& [button, golden] :
       {std::pair{SDL_BUTTON_WHEELUP, "history-line"}, {SDL_BUTTON_WHEELDOWN, "history0"}}) {
    Click(300, 550, Uint8(button));
    EXPECT_TRUE(Matches(golden, panels[0])) << "the one line goes from message to message";
  }
  Click(790, 554);
  Say(3, 13);
  // Buttons and notches; the last two notches are not over the panel. Eight rows back a message is cut at the top.
  const std::pair<int, Uint8> turns[] = {
      {520, SDL_BUTTON_LEFT},    {520, SDL_BUTTON_LEFT},      {520, SDL_BUTTON_LEFT},    {520, SDL_BUTTON_WHEELUP},
      {498, SDL_BUTTON_WHEELUP}, {562, SDL_BUTTON_WHEELDOWN}, {520, SDL_BUTTON_WHEELUP}, {538, SDL_BUTTON_LEFT},
      {496, SDL_BUTTON_WHEELUP}, {564, SDL_BUTTON_WHEELUP}};
  for (const auto& [y, button] : turns) Click(790, y, button);
  EXPECT_TRUE(Matches("history-back", panels[1]));
  Say(14, 16);
  EXPECT_TRUE(Matches("history-back", panels[1])) << "who reads stays where he is";
  Say(17, 303);
  for (int i = 0; i < 200; ++i) Click(790, 520);
  EXPECT_TRUE(Matches("history-oldest", panels[1])) << "200 are kept: from 104 on";
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
  Deliver(new PacketInternStatus(0, 49));
  Press(SDLK_UP);
  EXPECT_TRUE(Sent().empty()) << "nobody sees where the held key leads";
  Press(SDLK_UP, SDL_KEYUP);
  Press(SDLK_UP);
  EXPECT_EQ(Sent().size(), 1u) << "a fresh press asks";
  SetTickSource(nullptr);
}

TEST_F(ScreenGameTest, ShowsNothingOfTheWorldBeforeItsGround) {
  PacketDarkness dusk;
  dusk.mByDarkness = 30;
  const PacketInternStatus end(49, 49);
  for (const Packet* ground : {static_cast<const Packet*>(&dusk), static_cast<const Packet*>(&end)}) {
    Deliver(new PacketEnterGameAccept);
    mDisplay->RunPass();
    EXPECT_EQ(Ground(), (Rgb{0, 0, 0}));
    EXPECT_EQ(PixelAt(400, 270), (Rgb{0, 0, 0})) << "the player stands there";
    EXPECT_NE(PixelAt(400, 546), (Rgb{0, 0, 0})) << "the panel of what was said";
    Deliver(ground->Clone());
    EXPECT_NE(Ground(), (Rgb{0, 0, 0}));
  }
}

// What a step South brings into the window stands there from its first frame on.
TEST_F(ScreenGameTest, ThingsDoNotPopUpAtTheUpperEdge) {
  SetTickSource([] { return Uint32{5000}; });  // so that both show the same moment
  const SurfacePtr window = MakeWindow(), bare = MakeWindow();
  mWorld.player.StartMove(Direction::South);
  Field* field = mWorld.player.GetField();
  for (int step = 0; step < 15; ++step) field = field->GetNeighbor(Direction::North);
  for (SDL_Surface* shown : {bare.get(), window.get()}) {
    ScreenGame screen(0, shown, nullptr, nullptr, &mWorld.log, &mWorld.repository);
    Show(screen, kStart);
    screen.Blit();
    field->SetVoluId(kTree);
  }
  SetTickSource(nullptr);
  EXPECT_NE(std::memcmp(window->pixels, bare->pixels, std::size_t{45} * window->pitch), 0);
}

// Whatever the controller and the light do between two frames, and however late the display hears of it.
TEST_F(ScreenGameTest, TheGroundIsAlwaysThePlacesOwn) {
  std::mt19937 random(8);
  const auto dice = [&](Uint32 sides) { return random() % sides; };
  const SurfacePtr windows[] = {MakeWindow(), MakeWindow()};
  ScreenGame walked(0, windows[0].get(), nullptr, nullptr, &mWorld.log, &mWorld.repository);
  std::deque<std::unique_ptr<Packet>> mail;
  PacketDarkness light;
  bool showsProgress = false;
  const auto deliver = [&] {
    if (mail.empty()) return;
    if (const auto* darkness = PacketCast<PacketDarkness>(mail.front().get()))
      light.mByDarkness = darkness->mByDarkness;
    if (const auto* status = PacketCast<PacketInternStatus>(mail.front().get()))
      showsProgress = status->mUintValue != status->mUintMaxValue;
    walked.HandlePacket(mail.front().release());
    mail.pop_front();
  };
  const auto place = [&](AreaPosition area) {
    for (Uint32 steps = dice(4); steps > 0; --steps) area = NextArea(area, kSteps[dice(8)]);
    const PacketCharPosition placement({area, Uint8(dice(24)), Uint8(dice(24))});
    ASSERT_TRUE(mWorld.sync.SynchronizeMap(placement));
    mail.push_back(std::make_unique<PacketInternStatus>(0, 49));
    mail.emplace_back(placement.Clone());
  };
  // Onto a field of a neighbouring area; the map follows, or has not yet when the next frame comes.
  const auto step = [&](bool mapFollows) {
    Area* next = mWorld.player.GetField()->GetArea()->GetNeighbor(static_cast<Direction>(dice(8)));
    if (next == nullptr) return;
    mWorld.player.GetField()->RemoveCharacter();
    next->GetField(Uint8(dice(24)), Uint8(dice(24)))->AddCharacter(&mWorld.player);
    if (mapFollows) mWorld.sync.UpdateMapAfterMove();
  };
  const auto change = [&] {
    PacketAreaGround ground;
    static_cast<AreaPosition&>(ground) = mWorld.map.GetAreaAt(Uint8(dice(7)), Uint8(dice(7)))->GetPosition();
    for (Uint32& id : ground.mUintGround) id = kGround + 16 * dice(4);
    ground.mBySmoothness.fill(Uint8(dice(8)));
    mWorld.sync.UpdateAreaGround(ground);
  };
  const auto darken = [&] {
    PacketDarkness darkness;
    darkness.mByDarkness = Uint8(50 * dice(4));
    mail.emplace_back(darkness.Clone());
  };
  place(kStart);
  for (int round = 0; round < 40; ++round) {
    for (Uint32 events = dice(8); events > 0; --events) {
      switch (dice(8)) {
        case 0:
          place(mWorld.map.GetCenterArea()->GetPosition());
          break;
        case 1:
          step(true);
          break;
        case 2:
          step(false);
          break;
        case 3:
          change();
          break;
        case 4:
          darken();
          break;
        case 5:
          walked.Blit();
          break;
        default:
          deliver();
      }
    }
    mail.push_back(std::make_unique<PacketInternStatus>(49, 49));
    while (showsProgress || !(round > 0 || mail.empty())) deliver();

    EndSlide();
    ScreenGame fresh(0, windows[1].get(), nullptr, nullptr, &mWorld.log, &mWorld.repository);
    fresh.HandlePacket(light.Clone());
    Show(fresh, {mWorld.map.GetCenterArea()->GetPosition(), 0, 0});
    for (ScreenGame* screen : {&walked, &fresh}) screen->Blit();
    const auto size = static_cast<std::size_t>(windows[0]->pitch) * (1024 - 60);  // above the blinking cursor
    ASSERT_EQ(std::memcmp(windows[0]->pixels, windows[1]->pixels, size), 0) << "round " << round;
  }
}

// Meanwhile the controller's thread moves people, lets them speak and lets the player walk past any picture.
TEST_F(ScreenGameTest, CanBeDrawnWhileTheWorldChangesAndGivesItBackAfterAnError) {
  const Uint32 ids[] = {0, 1, kGround, kTree, kPictureCharacters, kPictureProgressBar, 0xFFFFFFFF, kGround + 16};
  Uint32 count = 0;
  for (Field& field : mWorld.map.GetCenterArea()->GetFields()) field.SetVoluId(ids[count++ % 8]);
  std::jthread controller([&](const std::stop_token& stop) {
    std::mt19937 random(7);
    const auto at = [&] { return FieldPosition{mWorld.map.GetCenterArea()->GetPosition(), Uint8(random() % 24), 23}; };
    while (!stop.stop_requested()) {
      PacketGameChatMsg speech(at(), "", "");
      for (std::size_t i = random() % 1023; i > 0; --i) speech.mStrMsg[i - 1] = char(random() % 255 + 1);
      mWorld.sync.AddChar(PacketAddChar(at()));
      mWorld.sync.ShowChatMessage(speech);
      mMailbox.Put(speech.Clone());
      mWorld.sync.MoveChar(PacketMove({at(), kStart.mByFx, Uint8(count++ % 24)}, Direction::NorthEast));
    }
  });
  for (int frame = 0; frame < 60; ++frame) {
    if (frame % 10 == 0) Screen().HandlePacket(new PacketInternStatus(49, 49));
    Press(SDLK_UP, frame % 2 == 0 ? SDL_KEYDOWN : SDL_KEYUP);
  }
  controller = {};  // stops it and waits
  EXPECT_EQ(ReadFile("log.clf").find("At tick"), std::string::npos) << "an error was reported";
  SDL_LockSurface(SDL_GetVideoSurface());  // nothing can be drawn onto a locked surface
  ErrHandler reporter;
  EXPECT_FALSE(Report(reporter, "", "", [&] { Screen().Blit(); }));
  SDL_UnlockSurface(SDL_GetVideoSurface());
  const SemaphoreLock lock(mWorld.repository);  // waits for ever if the error left it held
}

}  // namespace
}  // namespace tolva::test
