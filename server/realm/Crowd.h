#pragma once

#include <string>

#include "server/common/ServerTime.h"
#include "server/realm/CharacterIndex.h"
#include "server/terrain/World.h"

namespace tolva {

// Everybody who stands in the world, with or without a player. Whatever one of them does is passed on to the views of
// those who are near.
class Crowd {
 public:
  // The world must outlive the crowd.
  explicit Crowd(World& world) : mWorld(world) {}

  // Puts a character on its point, where nobody stands. It must live until Leave. Its view, if any, must be new: it is
  // filled with everybody near.
  void Join(WorldCharacter& character, TimePoint now);
  void Leave(WorldCharacter& character, TimePoint now);
  // Moves a character one field. False, with nothing done, for a direction that is none of the eight, when there is no
  // way or when somebody stands there.
  bool Step(WorldCharacter& character, Direction direction, TimePoint now);
  // Passes a line on to everybody near, the speaker included; false when the speaker's player already hears more lines
  // than it can read.
  bool Say(WorldCharacter& speaker, const std::string& line, TimePoint now);

  // Whether the ground allows a step; whoever stands there does not matter.
  bool IsWay(WorldPoint from, Direction direction);
  bool IsTaken(WorldPoint point) const { return mIndex.FindAt(point) != nullptr; }
  // Whether a character with a player is at most `distance` fields away.
  bool IsPlayerNear(WorldPoint point, std::int64_t distance) const;
  const CharacterIndex& GetIndex() const { return mIndex; }

 private:
  void Notify(const WorldCharacter& character, TimePoint now);

  World& mWorld;
  CharacterIndex mIndex;
  CharacterId mLastId = 0;
};

}  // namespace tolva
