#pragma once

#include <unordered_map>
#include <vector>

#include "server/realm/WorldCharacter.h"

namespace tolva {

// Who stands where, and who is near. Hashed by squares of the world, so that no query visits all characters, and its
// size depends on their number, not on how far they walk. At most one character stands on a field.
class CharacterIndex {
 public:
  // The character must live until Remove; its point changes through Move alone.
  void Add(WorldCharacter& character);
  void Remove(const WorldCharacter& character);
  void Move(WorldCharacter& character, WorldPoint to);

  // Null when there is none.
  const WorldCharacter* Find(CharacterId id) const;
  const WorldCharacter* FindAt(WorldPoint point) const;
  // All characters at most `distance` fields away, one on the point itself included.
  std::vector<const WorldCharacter*> FindNear(WorldPoint point, std::int64_t distance) const;

 private:
  using Square = std::vector<const WorldCharacter*>;

  static WorldPoint SquareOf(WorldPoint point);
  void Enter(const WorldCharacter& character);
  void Leave(const WorldCharacter& character);

  std::unordered_map<CharacterId, const WorldCharacter*> mCharacters;
  std::unordered_map<WorldPoint, Square, WorldPointHash> mSquares;
};

}  // namespace tolva
