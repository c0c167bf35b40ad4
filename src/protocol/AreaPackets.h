#pragma once

#include "protocol/FieldPosition.h"
#include "protocol/Packet.h"

namespace tolva {

// The ground of one area. The grids of a new packet are uninitialized: fill them whole.
struct PacketAreaGround final : PacketOf<PacketAreaGround, 700, "PacketAreaGround">, AreaHeader {
  PacketAreaGround() = default;
  explicit PacketAreaGround(const AreaHeader& area) : AreaHeader(area) {}

  AreaGrid<std::uint32_t> mUintGround;
  AreaGrid<std::uint8_t> mBySmoothness;

  static constexpr auto Fields() {
    return std::tuple_cat(AreaHeader::Fields(),
                          std::tuple{PacketField{"mUintGround", &PacketAreaGround::mUintGround},
                                     PacketField{"mBySmoothness", &PacketAreaGround::mBySmoothness}});
  }
};

// What stands on the fields of one area. The grid of a new packet is uninitialized: fill it whole.
struct PacketAreaVolu final : PacketOf<PacketAreaVolu, 701, "PacketAreaVolu">, AreaHeader {
  PacketAreaVolu() = default;
  explicit PacketAreaVolu(const AreaHeader& area) : AreaHeader(area) {}

  AreaGrid<std::uint32_t> mUintVolu;

  static constexpr auto Fields() {
    return std::tuple_cat(AreaHeader::Fields(), std::tuple{PacketField{"mUintVolu", &PacketAreaVolu::mUintVolu}});
  }
};

// To the server: the version that the client's cache holds, 0 for none. From the server: that version is current.
struct PacketAreaVersion final : PacketOf<PacketAreaVersion, 702, "PacketAreaVersion">, AreaHeader {
  PacketAreaVersion() = default;
  explicit PacketAreaVersion(const AreaHeader& area) : AreaHeader(area) {}

  using AreaHeader::Fields;
};

}  // namespace tolva
