#pragma once

#include "threads/Semaphore.h"
#include "world/ClientCharacter.h"
#include "world/ClientMap.h"

namespace tolva {

// The world that the controller changes and the display draws, and the lock that guards it: hold the semaphore for the
// whole of each use. The controller owns it; the display borrows its address.
class Repository : public Semaphore {
 public:
  ClientMap& GetMap() { return mMap; }
  // The player's own character. Stands on a field of the map once the server has placed it.
  ClientCharacter& GetPlayer() { return mPlayer; }

 private:
  ClientMap mMap;
  // After the map, so that it is destroyed first and leaves a field that still exists.
  ClientCharacter mPlayer;
};

}  // namespace tolva
