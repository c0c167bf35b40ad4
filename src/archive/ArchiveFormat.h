#pragma once

#include <cstddef>
#include <cstdint>

// The format of an archive's files, for reader and writer; docs/formats.md describes it.
namespace tolva::archive_format {

constexpr char kIndexSuffix[] = ".cci";
constexpr char kDataSuffix[] = ".cca";

// One index record: three little-endian 32-bit numbers.
constexpr std::size_t kRecordSize = 12;
constexpr std::size_t kIdAt = 0;
constexpr std::size_t kOffsetAt = 4;
constexpr std::size_t kSizeAt = 8;

// An index with more records is not read. This is about a thousand times the number of the client's pictures.
constexpr std::uint64_t kMaxRecords = 1U << 20;

// The last offset at which a picture may start: the limit of a signed 32-bit seek.
constexpr std::uint32_t kMaxPictureOffset = 0x7FFFFFFF;

// The font's entry in "Graphics".
constexpr std::uint32_t kFontId = 1;

}  // namespace tolva::archive_format
