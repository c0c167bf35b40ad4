#include <filesystem>

#include <benchmark/benchmark.h>

#include "support/TempDir.h"
#include "world/WorldSynchronizer.h"

namespace tolva {
namespace {

constexpr FieldPosition kPlace = {{10, 20, 4, 4, 0}, 12, 12};

// The argument is the distance from the center in areas: 2 is on the map, 9 is not.
void FindArea(benchmark::State& state) {
  ClientMap map;
  map.SetMapCoordinatesByCenter(kPlace);
  AreaPosition position = kPlace;
  for (int step = 0; step < state.range(0); ++step) position = NextArea(position, {1, 0});
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

// A placement by the server: loads every area from the cache and makes the request with its version.
void SynchronizeMap(benchmark::State& state) {
  const test::TempDir directory;
  std::filesystem::create_directory("area");
  InfoHandler log;
  Repository repository;
  const auto drop = [](std::unique_ptr<Packet>) {};
  WorldSynchronizer synchronizer(repository, "area/", {[](auto make) { make(); }, [] {}, drop}, log);
  const PacketCharPosition packet(kPlace);
  if (!synchronizer.SynchronizeMap(packet)) state.SkipWithError("refused");
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    repository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge)->Save("area/");
  }
  for (auto _ : state) benchmark::DoNotOptimize(synchronizer.SynchronizeMap(packet));
}
BENCHMARK(SynchronizeMap);

}  // namespace
}  // namespace tolva
