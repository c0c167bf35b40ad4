#include <filesystem>

#include <benchmark/benchmark.h>

#include "support/TempDir.h"
#include "world/WorldSynchronizer.h"

namespace tolva {
namespace {

constexpr FieldPosition kPlace = {{10, 20, 4, 4, 0}, 12, 12};

void PlaceMap(benchmark::State& state) {
  ClientMap map;
  for (auto _ : state) map.SetMapCoordinatesByCenter(kPlace);
}
BENCHMARK(PlaceMap);

// 1 is a single shift, 0 a double one.
void ShiftMap(benchmark::State& state) {
  ClientMap map;
  map.SetMapCoordinatesByCenter(kPlace);
  for (auto _ : state) map.ShiftAreas(static_cast<Direction>(state.range(0)));
}
BENCHMARK(ShiftMap)->Arg(1)->Arg(0);

// 2 steps from the center is on the map, 9 is not.
void FindArea(benchmark::State& state) {
  ClientMap map;
  map.SetMapCoordinatesByCenter(kPlace);
  AreaPosition position = kPlace;
  position.mByAx = static_cast<std::uint8_t>((position.mByAx + state.range(0)) % 8);
  position.mUintRx += static_cast<std::uint32_t>(4 + state.range(0)) / 8;
  for (auto _ : state) benchmark::DoNotOptimize(map.GetArea(position));
}
BENCHMARK(FindArea)->Arg(2)->Arg(9);

void SaveArea(benchmark::State& state) {
  const test::TempDir directory;
  Area area;
  for (auto _ : state) benchmark::DoNotOptimize(area.Save("./"));
}
BENCHMARK(SaveArea);

void LoadArea(benchmark::State& state) {
  const test::TempDir directory;
  Area area;
  if (!area.Save("./")) state.SkipWithError("cannot write here");
  for (auto _ : state) benchmark::DoNotOptimize(area.Load("./"));
}
BENCHMARK(LoadArea);

// A placement as the server orders it: every area from the cache, then its version to the server.
void SynchronizeMap(benchmark::State& state) {
  const test::TempDir directory;
  std::filesystem::create_directory("area");
  InfoHandler log;
  Repository repository;
  const auto drop = [](std::unique_ptr<Packet>) {};
  WorldSynchronizer synchronizer(repository, "area/", {[](auto make) { make(); }, [] {}, drop}, log);
  PacketCharPosition packet;
  static_cast<FieldPosition&>(packet) = kPlace;
  if (!synchronizer.SynchronizeMap(packet)) state.SkipWithError("refused");
  for (std::uint8_t i = 0; i < kMapEdge * kMapEdge; ++i) {
    repository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge)->Save("area/");
  }
  for (auto _ : state) benchmark::DoNotOptimize(synchronizer.SynchronizeMap(packet));
}
BENCHMARK(SynchronizeMap);

}  // namespace
}  // namespace tolva
