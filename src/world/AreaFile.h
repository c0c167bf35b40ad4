#pragma once

#include <cstddef>
#include <cstdint>

#include "protocol/PacketField.h"

namespace tolva {

// The file of one area in the cache (docs/formats.md): little-endian, without padding. The offset of each part:
constexpr std::size_t kAreaFileRx = 0;
constexpr std::size_t kAreaFileRy = 4;
constexpr std::size_t kAreaFileAx = 8;
constexpr std::size_t kAreaFileAy = 9;
constexpr std::size_t kAreaFileLevel = 10;
constexpr std::size_t kAreaFileVersion = 11;
constexpr std::size_t kAreaFileGround = 12;
constexpr std::size_t kAreaFileIdSize = 4;  // of a ground or volu id
constexpr std::size_t kAreaFileSmoothness = kAreaFileGround + kAreaFileIdSize * kAreaFields;
constexpr std::size_t kAreaFileVolu = kAreaFileSmoothness + kAreaFields;
constexpr std::size_t kAreaFileSize = kAreaFileVolu + kAreaFileIdSize * kAreaFields;

// printf format of the file's name, for Rx, Ry, Ax, Ay and the level as an int: one below 0 takes eight digits.
constexpr const char* kAreaFileName = "%.8X%.8X%.2X%.2X%.2X";

}  // namespace tolva
