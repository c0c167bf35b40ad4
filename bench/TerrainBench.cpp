#include <benchmark/benchmark.h>

#include "server/terrain/AreaPainter.h"
#include "server/terrain/ArrivalIsland.h"

namespace tolva {
namespace {

constexpr std::uint32_t kFarRegion = 5;

// Paints all areas of a region, then those of the next one: what a walking player makes the server do.
void PaintArea(benchmark::State& state) {
  const AreaPainter painter(1);
  const auto region = static_cast<std::uint32_t>(state.range(0));
  std::uint32_t count = 0;
  for (auto _ : state) {
    AreaPosition area{.mUintRx = region + count / (kRegionEdge * kRegionEdge), .mUintRy = region};
    area.mByAx = static_cast<std::uint8_t>(count % kRegionEdge);
    area.mByAy = static_cast<std::uint8_t>(count / kRegionEdge % kRegionEdge);
    benchmark::DoNotOptimize(painter.Paint(area));
    ++count;
  }
}
BENCHMARK(PaintArea)->ArgName("region")->Arg(kHomeRegion - 1)->Arg(kFarRegion);

}  // namespace
}  // namespace tolva
