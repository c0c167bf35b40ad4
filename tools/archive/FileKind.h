#pragma once

#include <cstdint>
#include <span>

namespace tolva {

// What an entry may be, told by its first bytes.
enum class FileKind { Unknown, Picture, Font, Music };

FileKind TellKind(std::span<const std::uint8_t> bytes);

// "picture", "font", "music" or "unknown".
const char* GetKindName(FileKind kind);

// How many of a file's first bytes TellKind looks at.
constexpr std::size_t kKindBytes = 64;

}  // namespace tolva
