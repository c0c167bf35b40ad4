#pragma once

#include "protocol/Packet.h"

namespace tolva {

// Renders packets as one line of text for the log. Each thread object owns one and is its only user.
class PacketPrinter {
 public:
  virtual ~PacketPrinter() = default;

  // The packet's text form, valid until the next call. Lists and grids are not shown. Never fails: a code without a
  // class, or one that the packet's class does not bear out, is shown as an unknown packet.
  const char* Print(const Packet& packet);

 private:
  char mText[16384] = "";
};

}  // namespace tolva
