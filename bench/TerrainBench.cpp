#include <benchmark/benchmark.h>

#include "server/terrain/AreaPainter.h"
#include "server/terrain/Chance.h"

namespace tolva {
namespace {

// Areas side by side from the arrival village (0) or far from it (1): what a walking player makes the server paint.
void PaintArea(benchmark::State& state) {
  const AreaPainter painter(1);
  AreaPosition area;
  area.mUintRx = area.mUintRy = state.range(0) == 0 ? 999 : 5;
  for (auto _ : state) {
    benchmark::DoNotOptimize(painter.Paint(area));
    area.mByAx = static_cast<std::uint8_t>((area.mByAx + 1) % 8);
    if (area.mByAx == 0) area.mByAy = static_cast<std::uint8_t>((area.mByAy + 1) % 8);
    if (area.mByAx == 0 && area.mByAy == 0) ++area.mUintRx;
  }
}
BENCHMARK(PaintArea)->Arg(0)->Arg(1);

}  // namespace
}  // namespace tolva
