#include "server/terrain/GradientNoise.h"

namespace tolva {
namespace {

// Brings common values near -1 to 1.
constexpr double kFirstLayerHeight = 1.7;

// The height at (dx, dy) from a lattice point of the slope that the point's hash stands for.
double SlopeAt(std::uint64_t hash, double dx, double dy) {
  constexpr double kUnit = 0x1p-31;
  const auto first = static_cast<std::int32_t>(hash);
  const auto second = static_cast<std::int32_t>(hash >> 32);
  return kUnit * (first * dx + second * dy);
}

// Smooth at 0 and 1, so that the lattice does not show.
double Ease(double t) { return t * t * t * (t * (t * 6 - 15) + 10); }

double LayerAt(std::uint64_t seed, int cell, WorldPoint point) {
  const std::int64_t left = point.x / cell;
  const std::int64_t low = point.y / cell;
  const std::int64_t right = (left + 1) * cell == kWorldEdge ? 0 : left + 1;
  const std::int64_t high = (low + 1) * cell == kWorldEdge ? 0 : low + 1;
  const double dx = static_cast<double>(point.x - left * cell) / cell;
  const double dy = static_cast<double>(point.y - low * cell) / cell;
  const double easedX = Ease(dx);
  const auto mixRow = [&](std::int64_t row, double rise) {
    const double west = SlopeAt(HashOf(seed, left, row), dx, rise);
    const double east = SlopeAt(HashOf(seed, right, row), dx - 1, rise);
    return west + (east - west) * easedX;
  };
  const double below = mixRow(low, dy);
  return below + (mixRow(high, dy - 1) - below) * Ease(dy);
}

}  // namespace

double GradientNoise::At(WorldPoint point) const {
  double sum = 0;
  double height = kFirstLayerHeight;
  for (int octave = 0; octave < mOctaves; ++octave) {
    sum += height * LayerAt(mSeed + static_cast<std::uint64_t>(octave), mCell >> octave, point);
    height /= 2;
  }
  return sum;
}

}  // namespace tolva
