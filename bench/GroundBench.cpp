#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "display/GameDisplayRect.h"
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

// The tile pictures, in grounds that all differ, and the default one.
void WriteTiles() {
  std::vector<test::TestRecord> records;
  std::string data;
  for (std::uint32_t i = 0; i <= kGrounds; ++i) {
    test::TestPicture tile{.width = 76, .height = 37, .color = PngColor::Palette, .seeThrough = {0}};
    tile.palette = {255, 0, 255, static_cast<std::uint8_t>(30 * i), 128, 64};
    for (int y = 0; y < 37; ++y) {
      for (int x = 0; x < 76; ++x) tile.samples.push_back(2 * std::abs(y - 18) <= std::min(x, 75 - x) ? 1 : 0);
    }
    const std::string png = MakePng(tile);
    const std::uint32_t id = i == kGrounds ? kDefaultGroundId : 0x1000 + 16 * i;
    records.push_back({id, static_cast<std::uint32_t>(data.size()), static_cast<std::uint32_t>(png.size())});
    data += png;
  }
  test::WriteFile("Graphics.cci", test::MakeIndex(records));
  test::WriteFile("Graphics.cca", data);
}

// All that the game screen shows of the ground: 25 rectangles around the middle of the map.
class Ground {
 public:
  Ground(int grounds, std::uint8_t smoothness) {
    WriteTiles();
    for (std::uint8_t i = 0; i < kMapEdge * kMapEdge; ++i) {
      for (Field& field : mRepository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) {
        const int ground = (field.GetFx() + 3 * field.GetFy()) % grounds;
        field.SetGroundId(static_cast<std::uint32_t>(0x1000 + 16 * ground));
        field.SetSmoothness(smoothness);
      }
    }
    for (int i = 0; i < 25; ++i) {
      const int x = 24 + 12 * (i / 5 + i % 5), y = 84 + 12 * (i / 5 - i % 5);
      mRects.push_back(std::make_unique<GameDisplayRect>(&mGraphics, &mRepository, &mLog));
      mRects.back()->SetStartField(static_cast<std::uint8_t>(x / 24), static_cast<std::uint8_t>(y / 24),
                                   static_cast<std::uint8_t>(x % 24), static_cast<std::uint8_t>(y % 24));
      mRects.back()->Update();
    }
  }

  void Update() {
    for (const auto& rect : mRects) rect->Update();
  }
  void Blit(SDL_Surface* target) {
    for (int i = 0; i < 25; ++i) {
      mRects[static_cast<std::size_t>(i)]->Blit(target, static_cast<std::int16_t>(912 * (i / 5) - 1900),
                                                static_cast<std::int16_t>(432 * (i % 5) - 800));
    }
  }
  GameGraphics& GetGraphics() { return mGraphics; }

 private:
  test::TempDir mDirectory;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  Repository mRepository;
  GameGraphics mGraphics{&mArchive};
  std::vector<std::unique_ptr<GameDisplayRect>> mRects;
};

SDL_Surface* StartVideo() {
  ::setenv("SDL_VIDEODRIVER", "dummy", 1);
  SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE);
  return SDL_SetVideoMode(800, 600, 16, SDL_SWSURFACE);
}

// Grounds and smoothness: one ground everywhere, eight with hard edges, eight with the widest transitions on each edge.
void RebuildGround(benchmark::State& state) {
  StartVideo();
  Ground ground(static_cast<int>(state.range(0)), static_cast<std::uint8_t>(state.range(1)));
  for (auto _ : state) ground.Update();
}
BENCHMARK(RebuildGround)->Args({1, 0})->Args({kGrounds, 0})->Args({kGrounds, 15})->Unit(benchmark::kMillisecond);

void BlitGround(benchmark::State& state) {
  SDL_Surface* video = StartVideo();
  Ground ground(1, 0);
  for (auto _ : state) ground.Blit(video);
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
