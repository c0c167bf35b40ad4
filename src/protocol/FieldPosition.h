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
    return std::tuple{
        PacketField{"mUintRx", &AreaHeader::mUintRx},   PacketField{"mUintRy", &AreaHeader::mUintRy},
        PacketField{"mByAx", &AreaHeader::mByAx},       PacketField{"mByAy", &AreaHeader::mByAy},
        PacketField{"mByLevel", &AreaHeader::mByLevel}, PacketField{"mByVersion", &AreaHeader::mByVersion}};
  }
};

// A field of the world: its area and the field within it (0 to 23). The wire can bring any byte.
struct FieldPosition : AreaPosition {
  std::uint8_t mByFx = 0;
  std::uint8_t mByFy = 0;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mUintRx", &FieldPosition::mUintRx},  PacketField{"mUintRy", &FieldPosition::mUintRy},
                      PacketField{"mByAx", &FieldPosition::mByAx},      PacketField{"mByAy", &FieldPosition::mByAy},
                      PacketField{"mByFx", &FieldPosition::mByFx},      PacketField{"mByFy", &FieldPosition::mByFy},
                      PacketField{"mByLevel", &FieldPosition::mByLevel}};
  }
};

}  // namespace tolva
