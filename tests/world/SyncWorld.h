#pragma once

#include <deque>
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

  std::function<void(std::unique_ptr<Packet>)> Into(Packets& packets) {
    return [&](std::unique_ptr<Packet> packet) {
      const SemaphoreLock lock(repository);  // waits for ever if it is still held
      packets.push_back(std::move(packet));
    };
  }
  void MakeRequests() {
    for (; !waiting.empty(); waiting.pop_front()) {
      if (auto request = waiting.front()()) Into(toServer)(std::move(request));
    }
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
  // What has been asked for and not made yet; without `delaysRequests` each is made at once.
  std::deque<WorldSynchronizer::MakeRequest> waiting;
  bool delaysRequests = false;
  WorldSynchronizer sync{repository,
                         "area/",
                         {[this](auto make) {
                            waiting.push_back(std::move(make));
                            if (!delaysRequests) MakeRequests();
                          },
                          [this] { waiting.clear(); }, Into(toDisplay)},
                         log};
};

}  // namespace tolva::test
