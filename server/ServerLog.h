#pragma once

#include <cstddef>
#include <ostream>
#include <string_view>

#include "protocol/PacketPrinter.h"
#include "server/ClientLink.h"
#include "server/common/RateLimiter.h"

namespace tolva {

enum class LogDetail { Events, EventsAndTraffic };

// Writes one line per event. Beyond a rate, lines are left out and their number is logged later, so that clients that
// connect and disconnect all the time cannot fill the disk. Callers quote what clients wrote (Quote in ChatText.h).
class ServerLog {
 public:
  // `out` must outlive the log.
  ServerLog(std::ostream& out, LogDetail detail) : mOut(out), mDetail(detail) {}

  void Event(std::string_view text, TimePoint now);
  // A packet from or to a client, without passwords. Not logged at detail Events.
  void Received(ClientId client, const Packet& packet, TimePoint now) { Traffic(client, " sent ", packet, now); }
  void Sending(ClientId client, const Packet& packet, TimePoint now) { Traffic(client, " gets ", packet, now); }

 private:
  struct Channel {
    RateLimiter limiter;
    std::size_t leftOut = 0;
  };

  void Traffic(ClientId client, const char* way, const Packet& packet, TimePoint now);
  void Write(Channel& channel, std::string_view text, TimePoint now);

  std::ostream& mOut;
  LogDetail mDetail;
  PacketPrinter mPrinter;
  // A limit for each, so that traffic cannot crowd out events.
  Channel mEvents{RateLimiter(500, std::chrono::seconds(10))};
  Channel mTraffic{RateLimiter(5000, std::chrono::seconds(10))};
};

}  // namespace tolva
