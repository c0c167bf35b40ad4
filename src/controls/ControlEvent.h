#pragma once

#include <cstdint>

namespace tolva {

class ControlBasic;

// A control's report to its owner, who may delete any control while handling it, except the sender and those above the
// sender in the tree.
struct ControlEvent {
  ControlBasic* sender;
  // The context given to the sender's constructor.
  void* receiver;
  // A kEvent constant of the sender's class.
  std::uint32_t code;
};

using ControlCallback = void (*)(ControlEvent);

}  // namespace tolva
