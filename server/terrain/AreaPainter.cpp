#include "server/terrain/AreaPainter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

namespace tolva {
namespace {

// Where two levels meet: the painted transition, and which of the two it counts as the upper kind.
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
// By level.
constexpr std::array<Ground, 6> kPlain = {Ground::Deep,  Ground::Shallow, Ground::Sand,
                                          Ground::Grass, Ground::Rock,    Ground::Snow};

// The corners of a field, as steps from its western one, in the order of a piece's bits.
constexpr Step kCorners[] = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
constexpr int kAllCorners = 15;

// In fields. Nothing grows on a road.
constexpr double kRoadHalfWidth = 1;
// Less than the distance to the nearest corner would leave gaps in a path.
constexpr double kPathHalfWidth = 0.75;
constexpr std::uint8_t kMaxSmoothness = 15;
constexpr double kFlowerChance = 0.06;
// The variants of grass without flowers, which come first.
constexpr std::uint32_t kPlainGrassVariants = 2;

template <typename IsUpper>
int PieceOf(int x, int y, IsUpper&& isUpper) {
  int piece = 0;
  for (int bit = 0; bit < 4; ++bit) {
    if (isUpper(x + kCorners[bit].x, y + kCorners[bit].y)) piece |= 1 << bit;
  }
  return piece;
}

// Whether `holds` is true of (x, y) and of all eight around it.
template <typename Condition>
bool HoldsAround(int x, int y, Condition&& holds) {
  return holds(x, y) && std::ranges::all_of(kSteps, [&](Step step) { return holds(x + step.x, y + step.y); });
}

// Whether people can walk through a thing.
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

// How far a ground fades into others; what people have dug has clear edges.
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
  // Fields beside the area on which the look of its own fields depends.
  static constexpr int kPieceMargin = 2;
  static constexpr int kKindMargin = 1;
  static constexpr int kSide = kAreaEdge + 2 * kPieceMargin;

  struct Tile {
    // The first of 16 pictures, and which of them; plain grounds have all corners.
    std::uint32_t first = 0;
    int piece = kAllCorners;
    Level upper = Level::Grass;
    bool isWater = false;
    bool onRoad = false;
    // Plain grass, where a soft ground may lie.
    Ground kind = Ground::Grass;

    bool IsPiece() const { return piece != kAllCorners; }
    bool IsPath() const { return first == static_cast<std::uint32_t>(Transition::GrassPath); }
    bool IsPlainGrass() const { return first == static_cast<std::uint32_t>(Ground::Grass); }
  };

  // What stands on a field.
  struct Occupant {
    std::uint32_t picture;
    bool isBlocking;
  };

  Tile& At(int x, int y) {
    return mTiles[static_cast<std::size_t>(x + kPieceMargin) * kSide + static_cast<std::size_t>(y + kPieceMargin)];
  }
  bool IsPaved(int x, int y) const;
  // Whether a plan wants cobbles on the field or around it, and no path on the field itself.
  bool IsCobbled(int x, int y) const;
  Tile MakeTile(int x, int y) const;
  void MakeTransition(Tile& tile, int x, int y, Level low) const;
  void Pave(Tile& tile, int x, int y) const;
  Vegetation::Habitat HabitatOf(int x, int y) const;
  void LaySoftGround(int x, int y);
  std::uint8_t SmoothnessAt(int x, int y);
  std::uint32_t PictureAt(int x, int y);
  Occupant OccupantOf(int x, int y);
  Thing NaturalThingAt(int x, int y);

  std::uint64_t mSeed;
  const Vegetation& mVegetation;
  WorldPoint mFirstField;
  Landscape mLandscape;
  TerrainLevels mLevels;
  std::array<Tile, static_cast<std::size_t>(kSide) * kSide> mTiles;
};

// Whether the western corner of field (x, y) belongs to a path or a paved place. Both lie in grass, so there must be
// nothing but grass around.
bool Painting::IsPaved(int x, int y) const {
  bool isTaken = false;
  bool isPavedByPlan = false;
  for (const Plan::Cell* planned : mLandscape.GetPlannedAtCorner(x, y)) {
    isTaken |= planned->inHouse || !IsPassable(planned->thing);
    isPavedByPlan |= tolva::IsPaved(planned->surface);
  }
  if (!isPavedByPlan && (isTaken || mLevels.GetRoadDistance(x, y) > kPathHalfWidth)) return false;
  return HoldsAround(x, y, [&](int cx, int cy) { return mLevels.GetLevel(cx, cy) == Level::Grass; });
}

bool Painting::IsCobbled(int x, int y) const {
  const auto surfaceAt = [&](int fx, int fy) { return mLandscape.GetPlanned(fx, fy).surface; };
  if (surfaceAt(x, y) == Surface::Path) return false;
  return !HoldsAround(x, y, [&](int fx, int fy) { return surfaceAt(fx, fy) != Surface::Cobbles; });
}

Painting::Tile Painting::MakeTile(int x, int y) const {
  Tile tile;
  Level low = Level::Snow;
  Level high = Level::Deep;
  for (const Step& corner : kCorners) {
    const Level level = mLevels.GetLevel(x + corner.x, y + corner.y);
    low = std::min(low, level);
    high = std::max(high, level);
    tile.onRoad |= mLevels.GetRoadDistance(x + corner.x, y + corner.y) < kRoadHalfWidth;
  }
  tile.upper = high;
  if (low != high) {
    MakeTransition(tile, x, y, low);
    return tile;
  }
  tile.first = static_cast<std::uint32_t>(kPlain[static_cast<std::size_t>(low)]);
  tile.isWater = low <= Level::Shallow;
  if (low == Level::Grass) Pave(tile, x, y);
  return tile;
}

void Painting::MakeTransition(Tile& tile, int x, int y, Level low) const {
  const Meeting& meeting = kMeetings[static_cast<std::size_t>(low)];
  tile.first = static_cast<std::uint32_t>(meeting.transition);
  tile.piece = PieceOf(x, y, [&](int cx, int cy) { return mLevels.GetLevel(cx, cy) == meeting.upper; });
  // A field with three corners of sand has its middle on dry land.
  const int sandCorners = std::popcount(static_cast<unsigned>(tile.piece));
  tile.isWater = tile.upper == Level::Shallow || (tile.upper == Level::Sand && sandCorners < 3);
}

void Painting::Pave(Tile& tile, int x, int y) const {
  const int grassCorners = PieceOf(x, y, [&](int cx, int cy) { return !IsPaved(cx, cy); });
  if (grassCorners == kAllCorners) return;
  const bool isCobbled = IsCobbled(x, y);
  if (grassCorners == 0) {
    tile.onRoad = true;
    tile.first = static_cast<std::uint32_t>(isCobbled ? Ground::Cobbles : Ground::Path);
    return;
  }
  tile.first = static_cast<std::uint32_t>(isCobbled ? Transition::GrassCobbles : Transition::GrassPath);
  tile.piece = grassCorners;
}

Vegetation::Habitat Painting::HabitatOf(int x, int y) const {
  return {Moved(mFirstField, x, y),
          {static_cast<double>(x), static_cast<double>(y)},
          mLevels.GetLevel(x, y),
          mLevels.GetInland(x, y)};
}

// Soft grounds lie inside grass only.
void Painting::LaySoftGround(int x, int y) {
  if (!HoldsAround(x, y, [&](int fx, int fy) { return At(fx, fy).IsPlainGrass(); })) return;
  const std::optional<Ground> planned = SoftGroundOf(mLandscape.GetPlanned(x, y).surface);
  At(x, y).kind = planned ? *planned : mVegetation.GetGround(HabitatOf(x, y), mLandscape);
}

// The client blends pixels at equal coordinates of two pictures: beside a painted piece it would show a wrong corner.
std::uint8_t Painting::SmoothnessAt(int x, int y) {
  const auto softnessAt = [&](Step step) {
    const Tile& tile = At(x + step.x, y + step.y);
    return tile.IsPlainGrass() ? SoftnessOf(tile.kind) : std::uint8_t{0};
  };
  std::uint8_t smoothness = std::min(kMaxSmoothness, softnessAt({0, 0}));
  for (const Direction direction : kEdgeDirections) smoothness = std::min(smoothness, softnessAt(StepIn(direction)));
  return smoothness;
}

std::uint32_t Painting::PictureAt(int x, int y) {
  const Tile& tile = At(x, y);
  if (tile.IsPiece()) return tile.first + static_cast<std::uint32_t>(tile.piece);
  const WorldPoint point = Moved(mFirstField, x, y);
  const std::uint64_t hash = HashOf(Salted(mSeed, WorldSalt::GroundVariant), point.x, point.y);
  const auto variant = static_cast<std::uint32_t>(hash % kGroundVariants);
  if (!tile.IsPlainGrass()) return tile.first + variant;
  const auto first = static_cast<std::uint32_t>(tile.kind);
  if (tile.kind != Ground::Grass) return first + variant;
  const std::uint32_t firstVariant = ChanceOf(hash) < kFlowerChance ? kPlainGrassVariants : 0;
  return first + firstVariant + variant % kPlainGrassVariants;
}

Thing Painting::NaturalThingAt(int x, int y) {
  const Tile& tile = At(x, y);
  if (tile.onRoad) return Thing::None;
  const Vegetation::Habitat habitat = HabitatOf(x, y);
  if (!tile.IsPiece()) return mVegetation.GetThing(habitat, tile.kind, mLandscape);
  return tile.IsPath() || tile.isWater ? Thing::None : mVegetation.GetThingOnRim(habitat, tile.upper);
}

Painting::Occupant Painting::OccupantOf(int x, int y) {
  const Tile& tile = At(x, y);
  const Plan::Cell& planned = mLandscape.GetPlanned(x, y);
  if (planned.inHouse) return {planned.housePicture, true};
  Thing thing = planned.surface == Surface::Nature ? NaturalThingAt(x, y) : planned.thing;
  if (tile.IsPath() && IsPassable(thing)) thing = Thing::None;  // worn down by feet
  const bool isBlocking = (tile.isWater && !IsPier(thing)) || !IsPassable(thing);
  return {static_cast<std::uint32_t>(thing), isBlocking};
}

std::shared_ptr<const AreaContent> Painting::Paint() {
  for (int x = -kPieceMargin; x < kAreaEdge + kPieceMargin; ++x) {
    for (int y = -kPieceMargin; y < kAreaEdge + kPieceMargin; ++y) At(x, y) = MakeTile(x, y);
  }
  for (int x = -kKindMargin; x < kAreaEdge + kKindMargin; ++x) {
    for (int y = -kKindMargin; y < kAreaEdge + kKindMargin; ++y) LaySoftGround(x, y);
  }
  auto content = std::make_shared<AreaContent>();
  std::uint64_t hash = 0;
  for (int x = 0; x < kAreaEdge; ++x) {
    for (int y = 0; y < kAreaEdge; ++y) {
      const std::size_t index = AreaContent::IndexOf(static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y));
      const Occupant occupant = OccupantOf(x, y);
      content->ground[index] = PictureAt(x, y);
      content->smoothness[index] = SmoothnessAt(x, y);
      content->volu[index] = occupant.picture;
      content->blocked[index] = occupant.isBlocking;
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
