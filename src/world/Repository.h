#pragma once

#include <optional>

#include "threads/Semaphore.h"
#include "world/ClientCharacter.h"
#include "world/ClientMap.h"

namespace tolva {

// The world as the client knows it, shared by two threads: the controller updates it, the display draws from it. Both
// hold the lock, which is the Semaphore itself, for as long as they use the map, the player or pointers into them. A
// member of the controller, which sends the display a pointer to it.
class Repository : public Semaphore {
 public:
  // Made with the first call: its 3 MB of fields take several milliseconds, and the client starts without a world.
  ClientMap& GetMap() { return mMap ? *mMap : mMap.emplace(); }
  // The player's own character. On no field before the server has placed it.
  ClientCharacter& GetPlayer() { return mPlayer; }

 private:
  std::optional<ClientMap> mMap;
  // After the map, so that it is destroyed first and can leave its field.
  ClientCharacter mPlayer;
};

}  // namespace tolva
