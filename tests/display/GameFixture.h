#pragma once

#include "display/DisplayFixture.h"
#include "display/ScreenGame.h"
#include "foundation/Ticks.h"
#include "support/SyncWorld.h"

namespace tolva::test {

// The first of four grounds, 16 ids apart, and a thing that stands on a field.
constexpr std::uint32_t kGround = 0x1000, kTree = 0x2000;
constexpr FieldPosition kStart{{4, 5, 7, 3, 0}, 5, 7};

// `color(x, y)` is 0 where the picture is see-through, else one of 44 colors.
template <typename Color>
std::string MakeShape(Uint32 width, Uint32 height, Color&& color) {
  TestPicture shape{width, height, PngColor::Palette, 8, {255, 0, 255}, {0}};
  for (int i = 1; i < 45; ++i) shape.palette.insert(shape.palette.end(), {Uint8(i * 67), Uint8(i * 97), Uint8(i * 41)});
  for (Uint32 i = 0; i < width * height; ++i) shape.samples.push_back(Uint8(color(int(i % width), int(i / width))));
  return MakePng(shape);
}

inline Entries GamePictures() {
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

// The part of the window around the player.
constexpr Rect kMiddle{250, 140, 300, 260};

// A display that shows a game screen, and the world that the controller shares with it.
class GameFixture : public DisplayFixture {
 protected:
  void SetUp() override {
    Start(GamePictures());
    Deliver(PacketInternRepository(&mWorld.repository));
    Deliver(PacketEnterGameAccept());
    ASSERT_TRUE(mWorld.Place(kStart));
    for (Uint8 i = 0; i < kMapAreas; ++i) {
      for (Field& field : mWorld.map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) {
        field.SetGroundId(kGround + (field.GetFx() / 3 * 31 + field.GetFy() / 4 * 17 + i) % 4 * 16);
        field.SetSmoothness(Uint8(field.GetFx() + i));
      }
    }
    EndSynchronization(Screen(), kStart);
    mDisplay->RunPass();
  }
  ~GameFixture() override { SetTickSource(nullptr); }

  ScreenGame& Screen() { return dynamic_cast<ScreenGame&>(*mDisplay->GetScreen()); }
  static void EndSynchronization(ScreenGame& screen, const FieldPosition& position) {
    screen.HandlePacket(new PacketCharPosition(position));
    screen.HandlePacket(new PacketInternStatus(kMapAreas, kMapAreas));
  }
  void Press(SDLKey key, Uint8 type = SDL_KEYDOWN) {
    SDL_Event event = KeyEvent(Key(key));
    event.type = type;
    Push(event);
    mDisplay->RunPass();
  }
  void EndSlide() {
    for (Uint32 now = GetTicks(); mWorld.player.IsMoving();) mWorld.player.Animate(now += 20);
  }
  // A window for a screen of the test's own.
  static SurfacePtr MakeWindow() { return SurfacePtr(SDL_CreateRGBSurface(0, 1280, 1024, 16, 0xF800, 0x7E0, 0x1F, 0)); }
  static Rgb Ground() { return PixelAt(400, 330); }  // below the player's feet

  SyncWorld mWorld;
};

}  // namespace tolva::test
