#pragma once

#include "protocol/FieldPosition.h"
#include "protocol/Packet.h"

namespace tolva {

// The ground of one area. A new packet's grids hold anything: whoever fills it fills them whole.
struct PacketAreaGround final : PacketOf<PacketAreaGround, 700, "PacketAreaGround">, AreaHeader {
  AreaGrid<std::uint32_t> mUintGround;
  AreaGrid<std::uint8_t> mBySmoothness;

  static constexpr auto Fields() {
    return std::tuple_cat(AreaHeader::Fields(),
                          std::tuple{PacketField{"mUintGround", &PacketAreaGround::mUintGround},
                                     PacketField{"mBySmoothness", &PacketAreaGround::mBySmoothness}});
  }
};

// What stands on the fields of one area. A new packet's grid holds anything: whoever fills it fills it whole.
struct PacketAreaVolu final : PacketOf<PacketAreaVolu, 701, "PacketAreaVolu">, AreaHeader {
  AreaGrid<std::uint32_t> mUintVolu;

  static constexpr auto Fields() {
    return std::tuple_cat(AreaHeader::Fields(), std::tuple{PacketField{"mUintVolu", &PacketAreaVolu::mUintVolu}});
  }
};

// To the server: the version that the client's cache holds. From the server: that version is current.
struct PacketAreaVersion final : PacketOf<PacketAreaVersion, 702, "PacketAreaVersion">, AreaHeader {
  PacketAreaVersion() = default;
  PacketAreaVersion(std::uint32_t rx, std::uint32_t ry, std::uint8_t ax, std::uint8_t ay, std::int8_t level,
                    std::uint8_t version)
      : AreaHeader{{rx, ry, ax, ay, level}, version} {}

  using AreaHeader::Fields;
};

}  // namespace tolva
