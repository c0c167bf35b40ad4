#pragma once

#include <cstdint>
#include <string>
#include <tuple>

#include "protocol/PacketField.h"

namespace tolva {

// The version of a program, as packets carry it.
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
constexpr VersionNumbers kVersion = {TOLVA_VERSION_MAJOR, TOLVA_VERSION_MINOR, TOLVA_VERSION_BUGFIX};

// The version as people write it: "0.6.23".
inline std::string ToText(const VersionNumbers& version) {
  return std::to_string(version.mUintVersionMajor) + '.' + std::to_string(version.mUintVersionMinor) + '.' +
         std::to_string(version.mUintVersionBugfix);
}

}  // namespace tolva
