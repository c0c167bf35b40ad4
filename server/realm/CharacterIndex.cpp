#include "server/realm/CharacterIndex.h"

#include <algorithm>
#include <iterator>

namespace tolva {
namespace {

// About as far as people see. Whole squares fill the world, so that none is cut off where it wraps around.
constexpr std::int64_t kSquareEdge = 32;  // fields
constexpr std::int64_t kSquaresAcross = kWorldEdge / kSquareEdge;
static_assert(kWorldEdge % kSquareEdge == 0);

}  // namespace

void CharacterIndex::Add(WorldCharacter& character) {
  mCharacters[character.id] = &character;
  Enter(character);
}

void CharacterIndex::Remove(const WorldCharacter& character) {
  Leave(character);
  mCharacters.erase(character.id);
}

void CharacterIndex::Move(WorldCharacter& character, WorldPoint to) {
  Leave(character);
  character.point = to;
  Enter(character);
}

const WorldCharacter* CharacterIndex::Find(CharacterId id) const {
  const auto found = mCharacters.find(id);
  return found == mCharacters.end() ? nullptr : found->second;
}

const WorldCharacter* CharacterIndex::FindAt(WorldPoint point) const {
  const auto square = mSquares.find(SquareOf(point));
  if (square == mSquares.end()) return nullptr;
  const auto found = std::ranges::find(square->second, point, &WorldCharacter::point);
  return found == square->second.end() ? nullptr : *found;
}

std::vector<const WorldCharacter*> CharacterIndex::FindNear(WorldPoint point, std::int64_t distance) const {
  std::vector<const WorldCharacter*> near;
  const WorldPoint corner = Moved(point, -distance, -distance);
  const WorldPoint first = SquareOf(corner);
  const std::int64_t columns = (corner.x % kSquareEdge + 2 * distance) / kSquareEdge;
  const std::int64_t rows = (corner.y % kSquareEdge + 2 * distance) / kSquareEdge;
  for (std::int64_t i = 0; i <= columns; ++i) {
    for (std::int64_t j = 0; j <= rows; ++j) {
      const auto square = mSquares.find({(first.x + i) % kSquaresAcross, (first.y + j) % kSquaresAcross});
      if (square == mSquares.end()) continue;
      std::ranges::copy_if(square->second, std::back_inserter(near), [&](const WorldCharacter* character) {
        return Distance(point, character->point) <= distance;
      });
    }
  }
  return near;
}

WorldPoint CharacterIndex::SquareOf(WorldPoint point) { return {point.x / kSquareEdge, point.y / kSquareEdge}; }

void CharacterIndex::Enter(const WorldCharacter& character) {
  mSquares[SquareOf(character.point)].push_back(&character);
}

void CharacterIndex::Leave(const WorldCharacter& character) {
  const auto square = mSquares.find(SquareOf(character.point));
  std::erase(square->second, &character);
  if (square->second.empty()) mSquares.erase(square);
}

}  // namespace tolva
