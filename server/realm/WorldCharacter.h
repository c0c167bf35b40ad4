#pragma once

#include <cstdint>
#include <string>

#include "protocol/WorldPoint.h"

namespace tolva {

class CharacterView;

// Numbers characters in the order in which they came; never used twice in one run, so that one who has gone is never
// taken for another.
using CharacterId = std::uint64_t;

// Somebody who stands on a field of the world.
struct WorldCharacter {
  // Given when it joins the crowd.
  CharacterId id = 0;
  std::string name;
  WorldPoint point;
  // What its player sees; null for those who have no player. Outlives the character's stay in the crowd.
  CharacterView* view = nullptr;
};

}  // namespace tolva
