#include "server/terrain/AreaPainter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

namespace tolva {
namespace {

constexpr int kEdge = kAreaEdge;

// The paint of two levels that meet: the painted transition, and which of the two it counts as the upper kind.
struct Meeting {
  Transition transition;
  Level upper;
};
// By the lower level. Grass lies over rock, though rock is higher.
constexpr std::array<Meeting, 5> kMeetings = {{{Transition::ShallowDeep, Level::Shallow},
                                               {Transition::SandShallow, Level::Sand},
                                               {Transition::GrassSand, Level::Grass},
                                               {Transition::GrassRock, Level::Grass},
                                               {Transition::SnowRock, Level::Snow}}};
constexpr std::array<Ground, 6> kPlain = {Ground::Deep,  Ground::Shallow, Ground::Sand,
                                          Ground::Grass, Ground::Rock,    Ground::Snow};

// The corners of a field as steps from its western one, in the order of a piece's bits.
constexpr PlanOffset kCorners[] = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
constexpr int kAllCorners = 15;

template <typename IsUpper>
int PieceOf(int x, int y, IsUpper&& isUpper) {
  int piece = 0;
  for (int bit = 0; bit < 4; ++bit) {
    if (isUpper(x + kCorners[bit].x, y + kCorners[bit].y)) piece |= 1 << bit;
  }
  return piece;
}

// Whom a thing lets pass.
bool IsPassable(Thing thing) {
  switch (thing) {
    case Thing::None:
    case Thing::Fern:
    case Thing::Mushrooms:
    case Thing::Tuft:
    case Thing::FlowerTuft:
    case Thing::Poppies:
    case Thing::Pebbles:
    case Thing::PierNorthEast:
    case Thing::PierNorthWest:
      return true;
    default:
      return false;
  }
}

bool IsPier(Thing thing) { return thing == Thing::PierNorthEast || thing == Thing::PierNorthWest; }

// How far a ground fades into others; what people dig has clear edges.
std::uint8_t SoftnessOf(Ground ground) {
  switch (ground) {
    case Ground::Grass:
      return 10;
    case Ground::DryGrass:
    case Ground::ForestFloor:
      return 14;
    case Ground::Flowers:
      return 10;
    case Ground::Field:
      return 2;
    default:
      return 0;
  }
}

std::optional<Ground> SoftGroundOf(Surface surface) {
  switch (surface) {
    case Surface::Nature:
    case Surface::Open:
      return std::nullopt;
    case Surface::DryGrass:
      return Ground::DryGrass;
    case Surface::Flowers:
      return Ground::Flowers;
    case Surface::Field:
      return Ground::Field;
    default:
      return Ground::Grass;
  }
}

// One area being painted.
class Painting {
 public:
  Painting(std::uint64_t seed, const TerrainNoises& noises, const Vegetation& vegetation, const AreaPosition& area)
      : mSeed(seed),
        mVegetation(vegetation),
        mFirstField(FirstFieldOf(area)),
        mLandscape(seed, area),
        mLevels(noises, mLandscape, mFirstField) {}

  std::shared_ptr<const AreaContent> Paint();

 private:
  // Fields beside the area that its own fields' looks hang on.
  static constexpr int kPieceMargin = 2;
  static constexpr int kKindMargin = 1;
  static constexpr int kSide = kEdge + 2 * kPieceMargin;

  struct Tile {
    // The first of 16 pictures, and which of them; plain kinds have all corners.
    std::uint32_t first = 0;
    int piece = kAllCorners;
    Level upper = Level::Grass;
    bool isWater = false;
    bool onRoad = false;
    // Plain grass, where a soft ground may lie.
    Ground kind = Ground::Grass;

    bool IsPiece() const { return piece != kAllCorners; }
    bool IsPlainGrass() const { return first == static_cast<std::uint32_t>(Ground::Grass); }
  };

  Tile& At(int x, int y) {
    return mTiles[static_cast<std::size_t>(x + kPieceMargin) * kSide + static_cast<std::size_t>(y + kPieceMargin)];
  }
  bool IsPaved(int x, int y) const;
  bool HasCobblesBy(int x, int y) const;
  Tile MakeTile(int x, int y) const;
  bool LiesInsideGrass(int x, int y);
  Vegetation::Habitat HabitatOf(int x, int y) const;
  void LaySoftGround(int x, int y);
  std::uint8_t SmoothnessAt(int x, int y);
  std::uint32_t PictureAt(int x, int y);
  std::uint32_t PlaceThing(int x, int y, bool& isBlocked);
  Thing NaturalThingAt(int x, int y);

  std::uint64_t mSeed;
  const Vegetation& mVegetation;
  WorldPoint mFirstField;
  Landscape mLandscape;
  TerrainLevels mLevels;
  std::array<Tile, static_cast<std::size_t>(kSide) * kSide> mTiles;
};

// Whether the western corner of field (x, y) belongs to a path or a paved place. Both lie in grass, which is why
// there must be nothing but grass around.
bool Painting::IsPaved(int x, int y) const {
  constexpr double kPathWidth = 0.75;  // never less than to the nearest corner, or the path would have gaps
  bool isTaken = false;
  bool isPavedByPlan = false;
  for (int dx = -1; dx <= 0; ++dx) {
    for (int dy = -1; dy <= 0; ++dy) {
      const Plan::Cell& planned = mLandscape.GetPlanned(x + dx, y + dy);
      isTaken |= planned.inHouse || !IsPassable(planned.thing);
      isPavedByPlan |= tolva::IsPaved(planned.surface);
    }
  }
  if (!isPavedByPlan && (isTaken || mLevels.GetRoadDistance(x, y) > kPathWidth)) return false;
  for (int dx = -1; dx <= 1; ++dx) {
    for (int dy = -1; dy <= 1; ++dy) {
      if (mLevels.GetLevel(x + dx, y + dy) != Level::Grass) return false;
    }
  }
  return true;
}

bool Painting::HasCobblesBy(int x, int y) const {
  if (mLandscape.GetPlanned(x, y).surface == Surface::Path) return false;
  for (int dx = -1; dx <= 1; ++dx) {
    for (int dy = -1; dy <= 1; ++dy) {
      if (mLandscape.GetPlanned(x + dx, y + dy).surface == Surface::Cobbles) return true;
    }
  }
  return false;
}

Painting::Tile Painting::MakeTile(int x, int y) const {
  Tile tile;
  Level low = Level::Snow;
  Level high = Level::Deep;
  for (const PlanOffset& corner : kCorners) {
    const Level level = mLevels.GetLevel(x + corner.x, y + corner.y);
    low = std::min(low, level);
    high = std::max(high, level);
    tile.onRoad |= mLevels.GetRoadDistance(x + corner.x, y + corner.y) < 1;
  }
  tile.upper = high;
  if (low != high) {
    const Meeting& meeting = kMeetings[static_cast<std::size_t>(low)];
    tile.first = static_cast<std::uint32_t>(meeting.transition);
    tile.piece = PieceOf(x, y, [&](int cx, int cy) { return mLevels.GetLevel(cx, cy) == meeting.upper; });
    // A field with three corners of sand has its middle on dry land.
    const int sandCorners = std::popcount(static_cast<unsigned>(tile.piece));
    tile.isWater = high == Level::Shallow || (high == Level::Sand && sandCorners < 3);
    return tile;
  }
  tile.first = static_cast<std::uint32_t>(kPlain[static_cast<std::size_t>(low)]);
  tile.isWater = low <= Level::Shallow;
  if (low != Level::Grass) return tile;
  const int grassCorners = PieceOf(x, y, [&](int cx, int cy) { return !IsPaved(cx, cy); });
  if (grassCorners == kAllCorners) return tile;
  const bool isCobbled = HasCobblesBy(x, y);
  tile.onRoad |= grassCorners == 0;
  if (grassCorners == 0) {
    tile.first = static_cast<std::uint32_t>(isCobbled ? Ground::Cobbles : Ground::Path);
  } else {
    tile.first = static_cast<std::uint32_t>(isCobbled ? Transition::GrassCobbles : Transition::GrassPath);
    tile.piece = grassCorners;
  }
  return tile;
}

bool Painting::LiesInsideGrass(int x, int y) {
  for (int dx = -1; dx <= 1; ++dx) {
    for (int dy = -1; dy <= 1; ++dy) {
      if (!At(x + dx, y + dy).IsPlainGrass()) return false;
    }
  }
  return true;
}

Vegetation::Habitat Painting::HabitatOf(int x, int y) const {
  return {{mFirstField.x + x, mFirstField.y + y},
          {static_cast<double>(x), static_cast<double>(y)},
          mLevels.GetLevel(x, y),
          mLevels.GetInland(x, y)};
}

void Painting::LaySoftGround(int x, int y) {
  if (!LiesInsideGrass(x, y)) return;
  const std::optional<Ground> planned = SoftGroundOf(mLandscape.GetPlanned(x, y).surface);
  At(x, y).kind = planned ? *planned : mVegetation.GetGround(HabitatOf(x, y), mLandscape);
}

// The client blends by pixels at equal coordinates of two pictures: beside a painted piece it would show a wrong
// corner.
std::uint8_t Painting::SmoothnessAt(int x, int y) {
  constexpr PlanOffset kEdges[] = {{0, 0}, {0, 1}, {1, 0}, {0, -1}, {-1, 0}};
  std::uint8_t smoothness = 15;
  for (const PlanOffset& edge : kEdges) {
    const Tile& tile = At(x + edge.x, y + edge.y);
    smoothness = std::min(smoothness, tile.IsPlainGrass() ? SoftnessOf(tile.kind) : std::uint8_t{0});
  }
  return smoothness;
}

std::uint32_t Painting::PictureAt(int x, int y) {
  const Tile& tile = At(x, y);
  if (tile.IsPiece()) return tile.first + static_cast<std::uint32_t>(tile.piece);
  const std::uint64_t hash = HashOf(mSeed + 31, WrapCoordinate(mFirstField.x + x), WrapCoordinate(mFirstField.y + y));
  const auto variant = static_cast<std::uint32_t>(hash % kGroundVariants);
  if (!tile.IsPlainGrass()) return tile.first + variant;
  const auto first = static_cast<std::uint32_t>(tile.kind);
  if (tile.kind != Ground::Grass) return first + variant;
  constexpr double kFlowers = 0.06;
  return first + variant % 2 + (ChanceOf(hash) < kFlowers ? 2 : 0);
}

Thing Painting::NaturalThingAt(int x, int y) {
  const Tile& tile = At(x, y);
  if (tile.onRoad) return Thing::None;
  const Vegetation::Habitat habitat = HabitatOf(x, y);
  if (!tile.IsPiece()) return mVegetation.GetThing(habitat, tile.kind, mLandscape);
  const bool isPathRim = tile.first == static_cast<std::uint32_t>(Transition::GrassPath);
  return isPathRim || tile.isWater ? Thing::None : mVegetation.GetThingOnRim(habitat, tile.upper);
}

std::uint32_t Painting::PlaceThing(int x, int y, bool& isBlocked) {
  const Tile& tile = At(x, y);
  const Plan::Cell& planned = mLandscape.GetPlanned(x, y);
  isBlocked = tile.isWater;
  if (planned.inHouse) {
    isBlocked = true;
    return planned.housePicture;
  }
  Thing thing = planned.thing;
  if (planned.surface == Surface::Nature) thing = NaturalThingAt(x, y);
  const bool isWorn = tile.first == static_cast<std::uint32_t>(Transition::GrassPath);
  if (isWorn && IsPassable(thing)) thing = Thing::None;  // grows under nobody's feet
  isBlocked = (tile.isWater && !IsPier(thing)) || !IsPassable(thing);
  return static_cast<std::uint32_t>(thing);
}

std::shared_ptr<const AreaContent> Painting::Paint() {
  for (int x = -kPieceMargin; x < kEdge + kPieceMargin; ++x) {
    for (int y = -kPieceMargin; y < kEdge + kPieceMargin; ++y) At(x, y) = MakeTile(x, y);
  }
  for (int x = -kKindMargin; x < kEdge + kKindMargin; ++x) {
    for (int y = -kKindMargin; y < kEdge + kKindMargin; ++y) LaySoftGround(x, y);
  }
  auto content = std::make_shared<AreaContent>();
  std::uint64_t hash = 0;
  for (int x = 0; x < kEdge; ++x) {
    for (int y = 0; y < kEdge; ++y) {
      const std::size_t index = AreaContent::IndexOf(static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y));
      bool isBlocked = false;
      content->ground[index] = PictureAt(x, y);
      content->smoothness[index] = SmoothnessAt(x, y);
      content->volu[index] = PlaceThing(x, y, isBlocked);
      content->blocked[index] = isBlocked;
      hash = HashOf(hash, content->ground[index], content->volu[index]) + content->smoothness[index];
    }
  }
  constexpr std::uint64_t kVersions = 255;
  content->version = static_cast<std::uint8_t>(1 + hash % kVersions);
  return content;
}

}  // namespace

AreaPainter::AreaPainter(std::uint64_t seed) : mSeed(seed), mTerrain(seed), mVegetation(seed) {}

std::shared_ptr<const AreaContent> AreaPainter::Paint(const AreaPosition& area) const {
  return Painting(mSeed, mTerrain, mVegetation, area).Paint();
}

}  // namespace tolva
