#pragma once

#include <deque>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "support/TempDir.h"
#include "world/WorldSynchronizer.h"

namespace tolva::test {

inline FieldPosition PositionOf(const Field& field) {
  return {field.GetArea()->GetPosition(), field.GetFx(), field.GetFy()};
}

inline std::vector<const Field*> FieldsOf(const ClientMap& map) {
  std::vector<const Field*> fields;
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    for (const Field& field : map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) fields.push_back(&field);
  }
  return fields;
}

// A client's world and its synchronizer, in a working directory of its own. Has no cache until a test creates the
// directory "area". Keeps what is sent.
struct SyncWorld {
  using Packets = std::vector<std::unique_ptr<Packet>>;

  std::function<void(std::unique_ptr<Packet>)> Into(Packets& packets) {
    return [&](std::unique_ptr<Packet> packet) {
      const SemaphoreLock lock(repository);  // waits forever if the sender still holds it
      packets.push_back(std::move(packet));
    };
  }
  void MakeRequests() {
    for (; !waiting.empty(); waiting.pop_front()) {
      if (auto request = waiting.front()()) Into(toServer)(std::move(request));
    }
  }
  // Forgets what was sent, then places the player.
  bool Place(const FieldPosition& position) {
    toServer.clear();
    toDisplay.clear();
    return sync.SynchronizeMap(PacketCharPosition(position));
  }

  const TempDir directory;
  InfoHandler log;
  Repository repository;
  ClientMap& map = repository.GetMap();
  ClientCharacter& player = repository.GetPlayer();
  Packets toServer;
  Packets toDisplay;
  // The queued requests; unless `delaysRequests` is set, each is made at once.
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
