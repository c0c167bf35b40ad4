#include "server/terrain/LatticeNoise.h"

namespace tolva {
namespace {

// How far the slope that the hash gives one lattice point rises over (dx, dy).
double SlopeAt(std::uint64_t hash, double dx, double dy) {
  constexpr double unit = 0x1p-31;
  const auto first = static_cast<std::int32_t>(hash);
  const auto second = static_cast<std::int32_t>(hash >> 32);
  return unit * (first * dx + second * dy);
}

// Without a kink at 0 and 1, so that no grid shows.
double Ease(double t) { return t * t * t * (t * (t * 6 - 15) + 10); }

double LayerAt(std::uint64_t seed, int cell, WorldPoint point) {
  const std::int64_t left = point.x / cell;
  const std::int64_t low = point.y / cell;
  const std::int64_t right = (left + 1) * cell == kWorldEdge ? 0 : left + 1;
  const std::int64_t high = (low + 1) * cell == kWorldEdge ? 0 : low + 1;
  const double dx = static_cast<double>(point.x - left * cell) / cell;
  const double dy = static_cast<double>(point.y - low * cell) / cell;
  const double across = Ease(dx);
  const auto mixed = [&](std::int64_t row, double rise) {
    const double west = SlopeAt(HashOf(seed, left, row), dx, rise);
    const double east = SlopeAt(HashOf(seed, right, row), dx - 1, rise);
    return west + (east - west) * across;
  };
  const double below = mixed(low, dy);
  return below + (mixed(high, dy - 1) - below) * Ease(dy);
}

}  // namespace

LatticeNoise::LatticeNoise(std::uint64_t seed, int cell, int octaves)
    : mSeed(MixBits(seed)), mCell(cell), mOctaves(octaves) {}

double LatticeNoise::At(WorldPoint point) const {
  const WorldPoint wrapped = {WrapCoordinate(point.x), WrapCoordinate(point.y)};
  double sum = 0;
  double height = 1.7;  // brings the common values near -1 to 1
  for (int octave = 0; octave < mOctaves; ++octave) {
    sum += height * LayerAt(mSeed + static_cast<std::uint64_t>(octave), mCell >> octave, wrapped);
    height /= 2;
  }
  return sum;
}

}  // namespace tolva
