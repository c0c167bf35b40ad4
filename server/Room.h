#pragma once

#include <cstdint>
#include <string>

#include "protocol/Packet.h"
#include "server/common/ServerTime.h"

namespace tolva {

class Session;

// The lobby or the world. Each logged-in user is in exactly one room, which decides what the user sees and who hears
// it. The core moves sessions in and out; a room holds a session from Enter to Leave only.
class Room {
 public:
  virtual ~Room() = default;

  // Makes the client change its screen, and sends all that the new screen shows.
  virtual void Enter(Session& session, TimePoint now) = 0;
  // The session has gone, or is about to enter another room.
  virtual void Leave(Session& session, TimePoint now) = 0;
  // A line for all who can hear the session. It is not blank and holds no control characters.
  virtual void Say(Session& session, const std::string& line, TimePoint now) = 0;
  // Any packet that the core does not answer itself. Those that mean nothing in this room are ignored: they may have
  // been sent before the client heard that its room had changed.
  virtual void Handle(Session& session, const Packet& packet, TimePoint now) = 0;
  // The darkness has changed.
  virtual void SetDarkness(std::uint8_t darkness) = 0;
  // To be called a few times a second.
  virtual void Tick(TimePoint now) = 0;
};

}  // namespace tolva
