#pragma once

#include <tuple>

#include "foundation/Text.h"
#include "protocol/PacketField.h"

namespace tolva {

// Why the server refuses something, in words for the player.
struct DenialReason {
  DenialReason() = default;
  // Longer texts are cut to 255 characters.
  explicit DenialReason(const char* reason) { CopyText(mStrReason, reason); }

  char mStrReason[kReasonCapacity] = "";

  static constexpr auto Fields() { return std::tuple{PacketField{"mStrReason", &DenialReason::mStrReason}}; }
};

}  // namespace tolva
