#include "display/MoveKeys.h"

#include <algorithm>
#include <iterator>

namespace tolva {
namespace {

constexpr std::uint32_t kMaxAnswerMs = 1000;

struct MoveKey {
  SDLKey key;
  Direction direction;
};

constexpr MoveKey kMoveKeys[] = {
    {SDLK_KP8, Direction::North}, {SDLK_UP, Direction::North},   {SDLK_KP9, Direction::NorthEast},
    {SDLK_KP6, Direction::East},  {SDLK_RIGHT, Direction::East}, {SDLK_KP3, Direction::SouthEast},
    {SDLK_KP2, Direction::South}, {SDLK_DOWN, Direction::South}, {SDLK_KP1, Direction::SouthWest},
    {SDLK_KP4, Direction::West},  {SDLK_LEFT, Direction::West},  {SDLK_KP7, Direction::NorthWest},
};

const MoveKey* Find(SDLKey key) {
  return std::find_if(std::begin(kMoveKeys), std::end(kMoveKeys), [&](const MoveKey& row) { return row.key == key; });
}

}  // namespace

Direction MoveKeys::DirectionOf(SDLKey key) {
  const MoveKey* row = Find(key);
  return row == std::end(kMoveKeys) ? Direction::None : row->direction;
}

bool MoveKeys::Admit(const SDL_Event& event, std::uint32_t now, bool isWorldHidden) {
  if (event.type != SDL_KEYDOWN && event.type != SDL_KEYUP) return true;
  const MoveKey* row = Find(event.key.keysym.sym);
  if (row == std::end(kMoveKeys)) return true;
  const std::uint32_t bit = 1U << (row - kMoveKeys);
  const bool isRepeat = event.type == SDL_KEYDOWN && (mHeld & bit) != 0;
  mHeld = event.type == SDL_KEYDOWN ? mHeld | bit : mHeld & ~bit;
  return !isRepeat || (!isWorldHidden && (!mIsRequestOpen || now - mRequestTick >= kMaxAnswerMs));
}

void MoveKeys::NoteRequest(std::uint32_t now) {
  mIsRequestOpen = true;
  mRequestTick = now;
}

}  // namespace tolva
