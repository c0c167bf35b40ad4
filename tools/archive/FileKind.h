#pragma once

#include <cstdint>
#include <span>

namespace tolva {

// The kind of an entry, recognized by its first bytes.
enum class FileKind { Unknown, Picture, Font, Music };

FileKind DetectKind(std::span<const std::uint8_t> bytes);

// "picture", "font", "music" or "unknown".
const char* GetKindName(FileKind kind);

// DetectKind needs at most this many of a file's first bytes.
constexpr std::size_t kKindBytes = 64;

}  // namespace tolva
