#pragma once

#include <cstdint>
#include <tuple>

#include "protocol/PacketField.h"

namespace tolva {

// A program's version as packets carry it.
struct VersionNumbers {
  std::uint16_t mUintVersionMajor = 0;
  std::uint16_t mUintVersionMinor = 0;
  std::uint16_t mUintVersionBugfix = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintVersionMajor", &VersionNumbers::mUintVersionMajor},
                      PacketField{"mUintVersionMinor", &VersionNumbers::mUintVersionMinor},
                      PacketField{"mUintVersionBugfix", &VersionNumbers::mUintVersionBugfix}};
  }
};

// The version of this client and of the protocol it speaks.
constexpr std::uint16_t kVersionMajor = TOLVA_VERSION_MAJOR;
constexpr std::uint16_t kVersionMinor = TOLVA_VERSION_MINOR;
constexpr std::uint16_t kVersionBugfix = TOLVA_VERSION_BUGFIX;

}  // namespace tolva
