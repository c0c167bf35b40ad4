#pragma once

#include "protocol/Packet.h"

namespace tolva {

// The way to one client.
class PacketSink {
 public:
  virtual ~PacketSink() = default;
  // Queues a copy and returns at once. Does not call back into the server's logic, so it is safe inside a broadcast.
  virtual void Send(const Packet& packet) = 0;
};

}  // namespace tolva
