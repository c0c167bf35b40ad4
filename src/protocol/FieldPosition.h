#pragma once

#include <cstdint>
#include <tuple>

#include "protocol/PacketField.h"

namespace tolva {

// An area of the world: region, area within the region (0 to 7) and level.
struct AreaPosition {
  std::uint32_t mUintRx = 0;
  std::uint32_t mUintRy = 0;
  std::uint8_t mByAx = 0;
  std::uint8_t mByAy = 0;
  std::int8_t mByLevel = 0;
};

// An area at one version of its content.
struct AreaHeader : AreaPosition {
  std::uint8_t mByVersion = 0;

  static constexpr auto Fields() {
    return std::tuple{Field{"mUintRx", &AreaHeader::mUintRx},   Field{"mUintRy", &AreaHeader::mUintRy},
                      Field{"mByAx", &AreaHeader::mByAx},       Field{"mByAy", &AreaHeader::mByAy},
                      Field{"mByLevel", &AreaHeader::mByLevel}, Field{"mByVersion", &AreaHeader::mByVersion}};
  }
};

// A field of the world: its area and the field within it (0 to 23). The wire can bring any byte.
struct FieldPosition : AreaPosition {
  std::uint8_t mByFx = 0;
  std::uint8_t mByFy = 0;

  static constexpr auto Fields() {
    return std::tuple{Field{"mUintRx", &FieldPosition::mUintRx},  Field{"mUintRy", &FieldPosition::mUintRy},
                      Field{"mByAx", &FieldPosition::mByAx},      Field{"mByAy", &FieldPosition::mByAy},
                      Field{"mByFx", &FieldPosition::mByFx},      Field{"mByFy", &FieldPosition::mByFy},
                      Field{"mByLevel", &FieldPosition::mByLevel}};
  }
};

}  // namespace tolva
