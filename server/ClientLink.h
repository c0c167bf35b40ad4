#pragma once

#include <cstdint>

#include "protocol/Packet.h"

namespace tolva {

// Numbers clients in the order of their connections; never used twice in one run.
using ClientId = std::uint64_t;

// All that the server's logic knows of a client's connection: the way out to it. Neither operation calls back into the
// logic, so both are safe in the middle of a broadcast.
class ClientLink {
 public:
  virtual ~ClientLink() = default;
  // Queues a copy; never waits. A client that does not read loses its connection instead of filling the memory.
  virtual void Send(const Packet& packet) = 0;
  // Ends the connection once what is queued has been sent, or after a bounded time. Nothing sent later gets out.
  virtual void CloseAfterSending() = 0;
};

}  // namespace tolva
