#include "tools/archive/FileKind.h"

#include <algorithm>
#include <string_view>

namespace tolva {
namespace {

using namespace std::string_view_literals;

struct Signature {
  FileKind kind;
  std::size_t at;
  std::string_view bytes;
};

// An Ogg file is music if its first packet, after the 28 bytes of a page header with one segment, is a Vorbis header.
constexpr Signature kSignatures[] = {
    {FileKind::Picture, 0, "\x89PNG\r\n\x1A\n"sv},
    {FileKind::Font, 0, "\0\x01\0\0"sv},
    {FileKind::Font, 0, "true"sv},
    {FileKind::Font, 0, "OTTO"sv},
    {FileKind::Music, 28, "\x01vorbis"sv},
};

bool IsAt(std::span<const std::uint8_t> bytes, std::size_t at, std::string_view wanted) {
  return bytes.size() >= at + wanted.size() &&
         std::equal(wanted.begin(), wanted.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                    [](char one, std::uint8_t other) { return static_cast<std::uint8_t>(one) == other; });
}

}  // namespace

FileKind DetectKind(std::span<const std::uint8_t> bytes) {
  for (const Signature& signature : kSignatures) {
    const bool isWrapped = signature.kind != FileKind::Music || IsAt(bytes, 0, "OggS");
    if (isWrapped && IsAt(bytes, signature.at, signature.bytes)) return signature.kind;
  }
  return FileKind::Unknown;
}

const char* GetKindName(FileKind kind) {
  switch (kind) {
    case FileKind::Picture:
      return "picture";
    case FileKind::Font:
      return "font";
    case FileKind::Music:
      return "music";
    case FileKind::Unknown:
      break;
  }
  return "unknown";
}

}  // namespace tolva
