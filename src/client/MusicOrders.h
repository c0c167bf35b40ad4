#pragma once

#include <memory>

#include "protocol/MusicPackets.h"

namespace tolva {

// What the sound manager is told next. It takes one order in 100 ms, and a player can change his mind faster: only the
// newest order waits. The lobby plays its music unless the player has turned music off. For the controller's thread.
class MusicOrders {
 public:
  // The player's own order, which also says whether he wants music from now on.
  void Order(const PacketMusicPlay& play);
  void Order(const PacketMusicStop& stop);
  // The player enters the lobby.
  void EnterLobby();
  void Clear() { mNewest.reset(); }

  // The order to hand over, which is then forgotten, or null. `isMailboxEmpty` says whether the sound manager has taken
  // the one before.
  std::unique_ptr<Packet> Take(bool isMailboxEmpty);

 private:
  std::unique_ptr<Packet> mNewest;
  bool mIsMusicWanted = true;
};

}  // namespace tolva
