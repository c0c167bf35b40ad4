#pragma once

#include <cstdint>
#include <string>

#include "protocol/WorldPoint.h"

namespace tolva {

class CharacterView;

// Numbers characters in the order in which they come; never reused in one run, so that a character that has gone is
// not mistaken for another.
using CharacterId = std::uint64_t;

// Somebody who stands on a field of the world.
struct WorldCharacter {
  // Set when the character joins the crowd.
  CharacterId id = 0;
  std::string name;
  WorldPoint point;
  // What its player sees; null without a player. Not owned; must live until the character leaves the crowd.
  CharacterView* view = nullptr;
};

}  // namespace tolva
