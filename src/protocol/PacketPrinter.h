#pragma once

#include "protocol/Packet.h"

namespace tolva {

// Prints packets as lines of text for the log. One for each thread.
class PacketPrinter {
 public:
  virtual ~PacketPrinter() = default;

  // The packet's text, valid until the next call. Leaves out lists and grids. Never fails: prints an unknown packet
  // when no class has the packet's code or when the packet is of another class.
  const char* Print(const Packet& packet);

 private:
  char mText[16384] = "";
};

}  // namespace tolva
