#pragma once

#include <cstddef>
#include <cstdint>

// The archive's files, for reader and writer alike; docs/formats.md tells them in words.
namespace tolva::archive_format {

constexpr char kIndexSuffix[] = ".cci";
constexpr char kDataSuffix[] = ".cca";

// One index record: three little-endian 32-bit numbers.
constexpr std::size_t kRecordSize = 12;
constexpr std::size_t kIdAt = 0;
constexpr std::size_t kOffsetAt = 4;
constexpr std::size_t kSizeAt = 8;

// An index with more records than this is not read: thousand times what the client has pictures.
constexpr std::uint64_t kMaxRecords = 1U << 20;

// Where an entry of the picture kind may start: the position is a signed 32-bit number.
constexpr std::uint32_t kMaxPictureOffset = 0x7FFFFFFF;

// The entry of "Graphics" that holds the font.
constexpr std::uint32_t kFontId = 1;

}  // namespace tolva::archive_format
