#pragma once

#include <cstddef>
#include <deque>

#include "protocol/AreaPackets.h"
#include "protocol/WorldPoint.h"
#include "server/FloodGuard.h"
#include "server/terrain/World.h"

namespace tolva {

class Session;

// Answers one client's questions for areas, in order: that its cached version is current, or the area itself. A whole
// map of 49 areas is as much as a connection's queue holds, so what is asked at once is answered over some ticks.
class AreaCourier {
 public:
  // Both must outlive the courier.
  AreaCourier(World& world, Session& session);

  // A question of a client that stands at `own`. Numbers that name no area on the ground level are ignored. Areas that
  // its map cannot hold are not looked up; that whatever it has is current is the answer, so that its count goes on.
  void Ask(const AreaHeader& question, WorldPoint own, TimePoint now);
  // Goes on with what had to wait. To be called several times a second.
  void Work(TimePoint now);

 private:
  struct Question {
    AreaHeader header;
    bool isNear;
  };

  void Answer(const Question& question);
  void SendArea(const AreaHeader& area, const AreaContent& content);

  World& mWorld;
  Session& mSession;
  std::deque<Question> mWaiting;
  FloodGuard mAnswers;
};

}  // namespace tolva
