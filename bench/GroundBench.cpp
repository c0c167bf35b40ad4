#include <algorithm>
#include <cstdlib>
#include <vector>

#include <benchmark/benchmark.h>

#include "display/FieldTiles.h"
#include "display/GroundGrid.h"
#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "media/GameGraphics.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"
#include "world/Repository.h"

namespace tolva {
namespace {

constexpr int kGrounds = 8;

// Writes the pictures of so many different grounds and of the default one.
void WriteTiles() {
  std::vector<test::TestRecord> records;
  std::string data;
  for (std::uint32_t i = 0; i <= kGrounds; ++i) {
    test::TestPicture tile{
        .width = kTileWidth, .height = kTilePictureHeight, .color = PngColor::Palette, .seeThrough = {0}};
    tile.palette = {255, 0, 255, static_cast<std::uint8_t>(30 * i), 128, 64};
    for (int y = 0; y < kTilePictureHeight; ++y) {
      for (int x = 0; x < kTileWidth; ++x) {
        const int fromEdge = std::min(x, kTileWidth - 1 - x);
        tile.samples.push_back(2 * std::abs(y - kTileHeight / 2) <= fromEdge ? 1 : 0);
      }
    }
    const std::string png = MakePng(tile);
    const std::uint32_t id = i == kGrounds ? kDefaultGroundId : 0x1000 + 16 * i;
    records.push_back({id, static_cast<std::uint32_t>(data.size()), static_cast<std::uint32_t>(png.size())});
    data += png;
  }
  test::WriteFile("Graphics.cci", test::MakeIndex(records));
  test::WriteFile("Graphics.cca", data);
}

// All the ground around the middle of a map.
class Ground {
 public:
  Ground(int grounds, std::uint8_t smoothness) {
    WriteTiles();
    for (std::uint8_t i = 0; i < kMapAreas; ++i) {
      for (Field& field : mRepository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) {
        const int ground = (field.GetFx() + 3 * field.GetFy()) % grounds;
        field.SetGroundId(static_cast<std::uint32_t>(0x1000 + 16 * ground));
        field.SetSmoothness(smoothness);
      }
    }
    mGrid.UpdateAllDisplayRects();
  }

  void Update() { mGrid.UpdateAllDisplayRects(); }
  void Blit(SDL_Surface& window) {
    mGrid.Blit(window, (window.w - GroundGrid::kWidth) / 2, (window.h - GroundGrid::kHeight) / 2);
  }
  GameGraphics& GetGraphics() { return mGraphics; }

 private:
  test::TempDir mDirectory;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  Repository mRepository;
  GameGraphics mGraphics{&mArchive};
  GroundGrid mGrid{mGraphics, mRepository, mLog};
};

SDL_Surface* StartVideo() {
  ::setenv("SDL_VIDEODRIVER", "dummy", 1);
  SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE);
  return SDL_SetVideoMode(800, 600, 16, SDL_SWSURFACE);
}

// The numbers of grounds and the smoothness: one ground, eight with hard edges, eight with the widest transitions.
void RebuildGround(benchmark::State& state) {
  StartVideo();
  Ground ground(static_cast<int>(state.range(0)), static_cast<std::uint8_t>(state.range(1)));
  for (auto _ : state) ground.Update();
}
BENCHMARK(RebuildGround)->Args({1, 0})->Args({kGrounds, 0})->Args({kGrounds, 15})->Unit(benchmark::kMillisecond);

void BlitGround(benchmark::State& state) {
  SDL_Surface* video = StartVideo();
  Ground ground(1, 0);
  for (auto _ : state) ground.Blit(*video);
}
BENCHMARK(BlitGround);

void DarkenGraphics(benchmark::State& state) {
  StartVideo();
  Ground ground(kGrounds, 0);
  std::uint8_t darkness = 0;
  for (auto _ : state) ground.GetGraphics().SetDarkness(++darkness);
}
BENCHMARK(DarkenGraphics);

}  // namespace
}  // namespace tolva
