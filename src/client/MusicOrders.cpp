#include "client/MusicOrders.h"

#include <utility>

namespace tolva {

void MusicOrders::Order(const PacketMusicPlay& play) {
  mIsMusicWanted = true;
  mNewest.reset(play.Clone());
}

void MusicOrders::Order(const PacketMusicStop& stop) {
  mIsMusicWanted = false;
  mNewest.reset(stop.Clone());
}

void MusicOrders::EnterLobby() {
  if (mIsMusicWanted) mNewest = std::make_unique<PacketMusicPlay>(kLobbyMusic);
}

std::unique_ptr<Packet> MusicOrders::Take(std::uint32_t waitingCount) {
  return waitingCount == 0 ? std::move(mNewest) : nullptr;
}

}  // namespace tolva
