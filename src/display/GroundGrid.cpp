#include "display/GroundGrid.h"

#include <utility>

#include "display/GroundTiles.h"
#include "foundation/Guard.h"
#include "protocol/FieldPosition.h"
#include "world/Repository.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";

constexpr int kMiddle = GroundGrid::kEdge / 2;
constexpr int kHalfArea = kAreaEdge / 2;

// For each direction in which the ground moves: from how far, in columns and rows, a place of the grid gets its new
// rectangle.
struct GridStep {
  int columns;
  int rows;
};
constexpr GridStep kGridSteps[kDirectionCount] = {{0, 2}, {-1, 1}, {-2, 0}, {-1, -1}, {0, -2}, {1, -1}, {2, 0}, {1, 1}};

using Shift = void (GroundGrid::*)();
constexpr Shift kShifts[kDirectionCount] = {
    &GroundGrid::ShiftDisplayRectsToNorth, &GroundGrid::ShiftDisplayRectsToNorthEast,
    &GroundGrid::ShiftDisplayRectsToEast,  &GroundGrid::ShiftDisplayRectsToSouthEast,
    &GroundGrid::ShiftDisplayRectsToSouth, &GroundGrid::ShiftDisplayRectsToSouthWest,
    &GroundGrid::ShiftDisplayRectsToWest,  &GroundGrid::ShiftDisplayRectsToNorthWest};

bool IsInGrid(int i, int j) { return i >= 0 && i < GroundGrid::kEdge && j >= 0 && j < GroundGrid::kEdge; }

template <typename Grid>
auto& RectAt(Grid& rects, int i, int j) {
  return rects[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
}

template <typename Body>
void ForEachPlace(Body&& body) {
  for (int i = 0; i < GroundGrid::kEdge; ++i) {
    for (int j = 0; j < GroundGrid::kEdge; ++j) body(i, j);
  }
}

}  // namespace

GroundGrid::GroundGrid(GameGraphics& graphics, Repository& repository, InfoHandler& logger) : mRepository(repository) {
  const auto tiles = std::make_shared<GroundTiles>(graphics);
  ForEachPlace([&](int i, int j) {
    RectAt(mRects, i, j) = std::make_unique<GameDisplayRect>(&graphics, &repository, &logger, tiles);
  });
  InitAllDisplayRects();
}

// ---- Layout ----

void GroundGrid::InitAllDisplayRects() { InitDisplayRects(kMiddle, kMiddle, kMapCenter, kMapCenter, 0, kHalfArea); }

void GroundGrid::InitDisplayRects(int i, int j, int r, int c, int fx, int fy) {
  Guard(kModule, "InitDisplayRects", [&] {
    const auto byte = [](int number) { return static_cast<std::uint8_t>(number); };
    RectAt(mRects, i, j)->SetStartField(byte(r), byte(c), byte(fx), byte(fy));
    // From rectangle to rectangle it is half an area, to the south-east or north-east, and so half the steps lead into
    // another area, in x or in y.
    const bool isFirstHalf = fx == 0;
    const struct {
      int i, j, r, c;
    } neighbors[] = {
        {i - 1, j, isFirstHalf ? r - 1 : r, isFirstHalf ? c : c - 1},
        {i + 1, j, isFirstHalf ? r : r + 1, isFirstHalf ? c + 1 : c},
        {i, j + 1, isFirstHalf ? r : r + 1, isFirstHalf ? c : c - 1},
        {i, j - 1, isFirstHalf ? r - 1 : r, isFirstHalf ? c + 1 : c},
    };
    for (const auto& next : neighbors) {
      if (!IsInGrid(next.i, next.j) || RectAt(mRects, next.i, next.j)->IsStartFieldSet()) continue;
      InitDisplayRects(next.i, next.j, next.r, next.c, fy, fx);
    }
  });
}

void GroundGrid::InvalidateAllDisplayRects() {
  Guard(kModule, "InvalidateAllDisplayRects",
        [&] { ForEachPlace([&](int i, int j) { RectAt(mRects, i, j)->ClearStartField(); }); });
}

void GroundGrid::UpdateAllDisplayRects() {
  Guard(kModule, "UpdateAllDisplayRects", [&] {
    mHasGround = true;
    // Nothing is left to be moved when the map follows the player.
    mLastCenter = mRepository.GetMap().GetCenterArea()->GetPosition();
    ForEachPlace([&](int i, int j) { RectAt(mRects, i, j)->Invalidate(); });
  });
}

// ---- Following the map ----

void GroundGrid::CheckAreaChange() {
  Guard(kModule, "CheckAreaChange", [&] {
    const AreaPosition center = mRepository.GetMap().GetCenterArea()->GetPosition();
    if (IsSameArea(center, mLastCenter)) return;
    for (const Step step : kSteps) {
      if (!IsSameArea(center, NextArea(mLastCenter, step))) continue;
      // The ground moves in the opposite direction.
      return UpdateDisplayRectsAfterMove(DirectionOf({-step.x, -step.y}));
    }
    // Too far for anything to be kept.
    mLastCenter = center;
  });
}

void GroundGrid::UpdateDisplayRectsAfterMove(Direction direction) {
  Guard(kModule, "UpdateDisplayRectsAfterMove", [&] {
    mLastCenter = mRepository.GetMap().GetCenterArea()->GetPosition();
    InvalidateAllDisplayRects();
    if (!IsDirection(direction)) return InitAllDisplayRects();
    const Shift shift = kShifts[static_cast<std::uint32_t>(direction)];
    (this->*shift)();
  });
}

void GroundGrid::ShiftDisplayRectsToNorth() { ShiftDisplayRects("ShiftDisplayRectsToNorth", Direction::North); }

void GroundGrid::ShiftDisplayRectsToNorthEast() {
  ShiftDisplayRects("ShiftDisplayRectsToNorthEast", Direction::NorthEast);
}

void GroundGrid::ShiftDisplayRectsToEast() { ShiftDisplayRects("ShiftDisplayRectsToEast", Direction::East); }

void GroundGrid::ShiftDisplayRectsToSouthEast() {
  ShiftDisplayRects("ShiftDisplayRectsToSouthEast", Direction::SouthEast);
}

void GroundGrid::ShiftDisplayRectsToSouth() { ShiftDisplayRects("ShiftDisplayRectsToSouth", Direction::South); }

void GroundGrid::ShiftDisplayRectsToSouthWest() {
  ShiftDisplayRects("ShiftDisplayRectsToSouthWest", Direction::SouthWest);
}

void GroundGrid::ShiftDisplayRectsToWest() { ShiftDisplayRects("ShiftDisplayRectsToWest", Direction::West); }

void GroundGrid::ShiftDisplayRectsToNorthWest() {
  ShiftDisplayRects("ShiftDisplayRectsToNorthWest", Direction::NorthWest);
}

// The rectangles that stay in the grid keep their pictures. Those that leave it come in again on the other side, as new
// ones: drawn by the next frame that shows them.
void GroundGrid::ShiftDisplayRects(const char* method, Direction direction) {
  Guard(kModule, method, [&] {
    const GridStep step = kGridSteps[static_cast<std::uint32_t>(direction)];
    Rects shifted;
    ForEachPlace([&](int i, int j) {
      const int fromI = i + step.columns;
      const int fromJ = j + step.rows;
      std::unique_ptr<GameDisplayRect>& rect = RectAt(mRects, (fromI + kEdge) % kEdge, (fromJ + kEdge) % kEdge);
      if (!IsInGrid(fromI, fromJ)) rect->Reset();
      RectAt(shifted, i, j) = std::move(rect);
    });
    mRects.swap(shifted);
    InitAllDisplayRects();
  });
}

// ---- Frames ----

void GroundGrid::Blit(SDL_Surface& window, int left, int top) {
  // After an error in the middle of a shift.
  if (!RectAt(mRects, kMiddle, kMiddle)->IsStartFieldSet()) InitAllDisplayRects();
  const bool isCovered = left <= 0 && top <= 0 && left + kWidth >= window.w && top + kHeight >= window.h;
  if (!isCovered) SDL_FillRect(&window, nullptr, SDL_MapRGB(window.format, 0, 0, 0));
  bool isAllCurrent = true;
  ForEachPlace([&](int i, int j) {
    const int x = left + GameDisplayRect::kWidth * i;
    const int y = top + GameDisplayRect::kHeight * j;
    if (x >= window.w || x + GameDisplayRect::kWidth <= 0 || y >= window.h || y + GameDisplayRect::kHeight <= 0) return;
    GameDisplayRect& rect = *RectAt(mRects, i, j);
    if (!rect.IsCurrent()) {
      isAllCurrent = false;
      rect.Update();
    }
    rect.Blit(&window, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
  });
  if (isAllCurrent) UpdateNext();
}

void GroundGrid::UpdateNext() {
  mNextPlace = (mNextPlace + 1) % (kEdge * kEdge);
  GameDisplayRect& rect = *RectAt(mRects, mNextPlace / kEdge, mNextPlace % kEdge);
  if (!rect.IsCurrent()) rect.Update();
}

}  // namespace tolva
