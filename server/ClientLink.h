#pragma once

#include <cstdint>

#include "server/common/PacketSink.h"

namespace tolva {

// Numbers clients in the order in which they connect; never reused in one run.
using ClientId = std::uint64_t;

// A client's connection, as the server's logic knows it. A client that does not read what it is sent loses its
// connection, so that it cannot fill the memory.
class ClientLink : public PacketSink {
 public:
  // Ends the connection once what is queued has been sent, or after a bounded time. Later packets are discarded. Does
  // not call back into the logic either.
  virtual void CloseAfterSending() = 0;
};

}  // namespace tolva
