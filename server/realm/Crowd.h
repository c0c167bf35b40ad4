#pragma once

#include <string>

#include "server/ServerTime.h"
#include "server/realm/CharacterIndex.h"
#include "server/terrain/World.h"

namespace tolva {

// All who stand in the world, with players or without. Whatever one of them does, those who see it are told.
class Crowd {
 public:
  // The world must outlive the crowd.
  explicit Crowd(World& world) : mWorld(world) {}

  // Puts a character on its point, where nobody stands. It must live until Leave, and its view, if any, be new: the
  // view is told of all who are near.
  void Join(WorldCharacter& character, TimePoint now);
  void Leave(WorldCharacter& character, TimePoint now);
  // False, with nothing done, when that is no direction, when there is no way or somebody stands there.
  bool Step(WorldCharacter& character, Direction direction, TimePoint now);
  // To all who are near, the speaker included; false when so many talk around the speaker that nobody could follow.
  bool Say(WorldCharacter& speaker, const std::string& line, TimePoint now);

  // Whether the ground lets somebody step that way; who stands there is not asked.
  bool IsWay(WorldPoint from, Direction direction);
  bool IsTaken(WorldPoint point) const { return mIndex.FindAt(point) != nullptr; }
  // Whether anybody with a player is so near.
  bool IsPlayerNear(WorldPoint point, std::int64_t distance) const;
  const CharacterIndex& GetIndex() const { return mIndex; }

 private:
  void Notify(const WorldCharacter& character, TimePoint now);

  World& mWorld;
  CharacterIndex mIndex;
  CharacterId mLastId = 0;
};

}  // namespace tolva
