#pragma once

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "support/TempDir.h"
#include "world/WorldSynchronizer.h"

namespace tolva::test {

// A synchronised world in a directory of its own, without cache until somebody makes it; what is sent is kept.
struct SyncWorld {
  using Packets = std::vector<std::unique_ptr<Packet>>;

  WorldSynchronizer::Send Into(Packets& packets) {
    return [&](std::unique_ptr<Packet> packet) {
      // Waits for ever if the lock is still held.
      const SemaphoreLock lock(repository);
      packets.push_back(std::move(packet));
    };
  }

  // Places the player and forgets what was sent for it.
  bool Place(const FieldPosition& position) {
    PacketCharPosition packet;
    static_cast<FieldPosition&>(packet) = position;
    const bool forward = sync.SynchronizeMap(packet);
    toServer.clear();
    toDisplay.clear();
    return forward;
  }

  TempDir directory;
  InfoHandler log;
  Repository repository;
  ClientMap& map = repository.GetMap();
  ClientCharacter& player = repository.GetPlayer();
  Packets toServer;
  Packets toDisplay;
  WorldSynchronizer sync{repository, "area/", {Into(toServer), Into(toDisplay)}, log};
};

// The packet with the position filled in.
template <typename PacketType>
PacketType At(const FieldPosition& position, Direction direction = Direction::None) {
  PacketType packet;
  static_cast<FieldPosition&>(packet) = position;
  if constexpr (requires { packet.mEnmDirection; }) packet.mEnmDirection = direction;
  return packet;
}

inline FieldPosition PositionOf(const Field& field) {
  return {field.GetArea()->GetPosition(), field.GetFx(), field.GetFy()};
}

}  // namespace tolva::test
