#pragma once

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "support/TempDir.h"
#include "world/WorldSynchronizer.h"

namespace tolva::test {

// The packet with the position filled in.
template <typename PacketX>
PacketX At(const FieldPosition& position, Direction direction = Direction::None) {
  PacketX packet;
  static_cast<FieldPosition&>(packet) = position;
  if constexpr (requires { packet.mEnmDirection; }) packet.mEnmDirection = direction;
  return packet;
}

// A synchronised world in a directory of its own, without cache until somebody makes it; what is sent is kept.
struct SyncWorld {
  using Packets = std::vector<std::unique_ptr<Packet>>;

  WorldSynchronizer::Send Into(Packets& packets) {
    return [&](std::unique_ptr<Packet> packet) {
      const SemaphoreLock lock(repository);  // waits for ever if it is still held
      packets.push_back(std::move(packet));
    };
  }
  // Places the player after forgetting what was sent.
  bool Place(const FieldPosition& position) {
    toServer.clear();
    toDisplay.clear();
    return sync.SynchronizeMap(At<PacketCharPosition>(position));
  }

  const TempDir directory;
  InfoHandler log;
  Repository repository;
  ClientMap& map = repository.GetMap();
  ClientCharacter& player = repository.GetPlayer();
  Packets toServer;
  Packets toDisplay;
  WorldSynchronizer sync{repository, "area/", {Into(toServer), Into(toDisplay)}, log};
};

}  // namespace tolva::test
