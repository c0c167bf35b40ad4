#pragma once

#include <cstdint>
#include <string>

#include "protocol/Packet.h"
#include "server/ServerTime.h"

namespace tolva {

class Session;

// Where logged-in users are: each is in exactly one place, which decides what it sees and who hears it. The core moves
// sessions in and out; a place keeps no session longer than from Enter to Leave.
class Place {
 public:
  virtual ~Place() = default;

  // Makes the client change its screen and tells it all that the new one shows.
  virtual void Enter(Session& session, TimePoint now) = 0;
  // The session has gone, or is about to enter another place.
  virtual void Leave(Session& session, TimePoint now) = 0;
  // A line for all who can hear the session. It is not blank and holds no control characters.
  virtual void Say(Session& session, const std::string& line, TimePoint now) = 0;
  // Any packet that the core does not answer itself. One that means nothing here is ignored: it may have been sent
  // before its sender heard of the change of place.
  virtual void Handle(Session& session, const Packet& packet, TimePoint now) = 0;
  // The darkness has changed.
  virtual void SetDarkness(std::uint8_t darkness) = 0;
  // Called a few times a second.
  virtual void Tick(TimePoint now) = 0;
};

}  // namespace tolva
