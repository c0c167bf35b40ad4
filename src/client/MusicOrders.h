#pragma once

#include <cstdint>
#include <memory>

#include "protocol/MusicPackets.h"

namespace tolva {

// The next order to the sound manager, which takes one in 100 ms. A player can press the button faster, so a new order
// replaces one that still waits. The lobby plays its music unless the player has turned music off. For the controller's
// thread.
class MusicOrders {
 public:
  // Takes the player's own order, which also says whether the lobby plays music from now on.
  void Order(const PacketMusicPlay& play);
  void Order(const PacketMusicStop& stop);
  // Call it when the player enters the lobby.
  void EnterLobby();
  void Clear() { mNewest.reset(); }

  // Takes the order that waits, or null. Also null while the sound manager has not taken the last one from its mailbox,
  // which holds `waitingCount` packets.
  std::unique_ptr<Packet> Take(std::uint32_t waitingCount);

 private:
  std::unique_ptr<Packet> mNewest;
  bool mIsMusicWanted = true;
};

}  // namespace tolva
