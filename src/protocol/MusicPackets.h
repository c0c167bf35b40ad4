#pragma once

#include "protocol/Packet.h"

namespace tolva {

// Ids are entries of the archive "Sounds"; 0 means no music.
struct PacketMusicPlay final : PacketOf<PacketMusicPlay, 1000, "PacketMusicPlay"> {
  PacketMusicPlay() = default;
  explicit PacketMusicPlay(std::uint16_t musicId) : mUintMusicId(musicId) {}

  std::uint16_t mUintMusicId = 0;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintMusicId", &PacketMusicPlay::mUintMusicId}}; }
};

struct PacketMusicPause final : PacketOf<PacketMusicPause, 1001, "PacketMusicPause"> {};
struct PacketMusicStop final : PacketOf<PacketMusicStop, 1002, "PacketMusicStop"> {};

}  // namespace tolva
