#pragma once

#include <unordered_map>
#include <vector>

#include "server/realm/WorldCharacter.h"

namespace tolva {

// Who stands where, and who is near: hashed by squares of the world, so that no question walks over everybody, and
// its size follows from how many there are, not from how far they walk. At most one character on a field.
class CharacterIndex {
 public:
  // The character must live until Remove; its point changes through Move alone.
  void Add(WorldCharacter& character);
  void Remove(const WorldCharacter& character);
  void Move(WorldCharacter& character, WorldPoint to);

  // Null when there is none.
  const WorldCharacter* Find(CharacterId id) const;
  const WorldCharacter* FindAt(WorldPoint point) const;
  // Everybody at most so many fields away, whoever stands on the point itself included.
  std::vector<WorldCharacter*> FindNear(WorldPoint point, std::int64_t distance) const;

 private:
  using Square = std::vector<WorldCharacter*>;

  static WorldPoint SquareOf(WorldPoint point);
  void Enter(WorldCharacter& character);
  void Leave(const WorldCharacter& character);

  std::unordered_map<CharacterId, WorldCharacter*> mCharacters;
  std::unordered_map<WorldPoint, Square, WorldPointHash> mSquares;
};

}  // namespace tolva
