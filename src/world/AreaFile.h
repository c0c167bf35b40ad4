#pragma once

#include <cstddef>
#include <cstdint>

#include "protocol/PacketField.h"

namespace tolva {

// The area cache's files (docs/formats.md): one for each area, little-endian, without padding. Where each part starts:
constexpr std::size_t kAreaFileRx = 0;
constexpr std::size_t kAreaFileRy = 4;
constexpr std::size_t kAreaFileAx = 8;
constexpr std::size_t kAreaFileAy = 9;
constexpr std::size_t kAreaFileLevel = 10;
constexpr std::size_t kAreaFileVersion = 11;
constexpr std::size_t kAreaFileGround = 12;
constexpr std::size_t kAreaFileSmoothness = kAreaFileGround + 4 * kAreaFields;
constexpr std::size_t kAreaFileVolu = kAreaFileSmoothness + kAreaFields;
constexpr std::size_t kAreaFileSize = kAreaFileVolu + 4 * kAreaFields;

// The name after the directory: Rx, Ry, Ax, Ay and the level, for printf. A level below 0 takes eight digits.
constexpr const char* kAreaFileName = "%.8X%.8X%.2X%.2X%.2X";

}  // namespace tolva
