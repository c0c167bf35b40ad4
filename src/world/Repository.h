#pragma once

#include "threads/Semaphore.h"
#include "world/ClientCharacter.h"
#include "world/ClientMap.h"

namespace tolva {

// The world as the client knows it, shared by two threads: the controller updates it, the display draws from it. Both
// hold the lock, which is the Semaphore itself, for as long as they use the map, the player or pointers into them. A
// member of the controller, which sends the display a pointer to it.
class Repository : public Semaphore {
 public:
  ClientMap& GetMap() { return mMap; }
  // The player's own character. On no field before the server has placed it.
  ClientCharacter& GetPlayer() { return mPlayer; }

 private:
  ClientMap mMap;
  // After the map, so that it is destroyed first and can leave its field.
  ClientCharacter mPlayer;
};

}  // namespace tolva
