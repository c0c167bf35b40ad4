#pragma once

#include "protocol/Packet.h"

namespace tolva {

// Ids of pieces of music: entries of the archive "Sounds"; 0 means no music.
using MusicId = std::uint16_t;
constexpr MusicId kNoMusic = 0;
constexpr MusicId kLobbyMusic = 1;

struct PacketMusicPlay final : PacketOf<PacketMusicPlay, 1000, "PacketMusicPlay"> {
  PacketMusicPlay() = default;
  explicit PacketMusicPlay(MusicId musicId) : mUintMusicId(musicId) {}

  MusicId mUintMusicId = kNoMusic;

  static constexpr auto Fields() { return std::tuple{PacketField{"mUintMusicId", &PacketMusicPlay::mUintMusicId}}; }
};

struct PacketMusicPause final : PacketOf<PacketMusicPause, 1001, "PacketMusicPause"> {};
struct PacketMusicStop final : PacketOf<PacketMusicStop, 1002, "PacketMusicStop"> {};

}  // namespace tolva
