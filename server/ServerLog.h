#pragma once

#include <cstddef>
#include <ostream>
#include <string_view>

#include "protocol/PacketPrinter.h"
#include "server/ClientLink.h"
#include "server/FloodGuard.h"

namespace tolva {

enum class LogDetail { Events, EventsAndTraffic };

// Writes one line per event. When more come than anybody can read, lines are left out and their number is told later,
// so that clients that come and go all the time do not fill the disk. What clients wrote must be quoted (ChatText.h).
class ServerLog {
 public:
  // `out` must outlive the log.
  ServerLog(std::ostream& out, LogDetail detail) : mOut(out), mDetail(detail) {}

  void Event(std::string_view text, TimePoint now);
  // A packet that came from or goes to a client, without passwords; nothing at detail Events.
  void Received(ClientId client, const Packet& packet, TimePoint now) { Traffic(client, " sent ", packet, now); }
  void Sending(ClientId client, const Packet& packet, TimePoint now) { Traffic(client, " gets ", packet, now); }

 private:
  struct Channel {
    FloodGuard guard;
    std::size_t leftOut = 0;
  };

  void Traffic(ClientId client, const char* way, const Packet& packet, TimePoint now);
  void Write(Channel& channel, std::string_view text, TimePoint now);

  std::ostream& mOut;
  LogDetail mDetail;
  PacketPrinter mPrinter;
  // Traffic must not crowd out the events, so each has a measure of its own.
  Channel mEvents{FloodGuard(500, std::chrono::seconds(10))};
  Channel mTraffic{FloodGuard(5000, std::chrono::seconds(10))};
};

}  // namespace tolva
