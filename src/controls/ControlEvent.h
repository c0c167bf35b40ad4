#pragma once

#include <cstdint>

namespace tolva {

class ControlBasic;

// What a control tells its owner. While it handles a report, the owner may delete any control except the sender and
// those that hold the sender.
struct ControlEvent {
  ControlBasic* sender;
  // The context that the sender was constructed with.
  void* receiver;
  // One of the sender's class's kEvent constants.
  std::uint32_t code;
};

using ControlCallback = void (*)(ControlEvent);

}  // namespace tolva
