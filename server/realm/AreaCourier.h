#pragma once

#include <cstddef>
#include <deque>

#include "protocol/AreaPackets.h"
#include "protocol/WorldPoint.h"
#include "server/common/PacketSink.h"
#include "server/common/RateLimiter.h"
#include "server/terrain/World.h"

namespace tolva {

// Answers one client's requests for areas, in order: its cached version is current, or here is the area. A whole map of
// 49 areas would fill a connection's queue, so answers to a burst are spread over several ticks.
class AreaCourier {
 public:
  // Both must outlive the courier.
  AreaCourier(World& world, PacketSink& client) : mWorld(world), mClient(client) {}

  // A request from a client whose player stands on `own`. Numbers that name no area on the ground level are ignored. An
  // area too far away for the client's map is not looked up; its version is called current, because the client counts
  // the answers.
  void Ask(const AreaHeader& request, WorldPoint own, TimePoint now);
  // Sends the answers that had to wait. To be called several times a second.
  void Work(TimePoint now);

 private:
  // 16 areas are 84 KB, a third of a connection's queue. A client sends ten requests a second.
  static constexpr std::size_t kAnswersPerWindow = 16;
  static constexpr auto kWindow = std::chrono::milliseconds(250);

  struct Request {
    AreaHeader area;
    bool isNear;
  };

  void Answer(const Request& request);
  void SendArea(const AreaPosition& area, const AreaContent& content);

  World& mWorld;
  PacketSink& mClient;
  std::deque<Request> mWaiting;
  RateLimiter mAnswers{kAnswersPerWindow, kWindow};
};

}  // namespace tolva
