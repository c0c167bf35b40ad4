#include "server/common/ChatText.h"

#include <algorithm>
#include <cstdio>

namespace tolva {
namespace {

constexpr unsigned char kNoBreakBlank = 0xA0;
constexpr unsigned char kSoftHyphen = 0xAD;

char FoldCharacter(char character) {
  const auto byte = static_cast<unsigned char>(character);
  const bool isAsciiCapital = byte >= 'A' && byte <= 'Z';
  const bool isAccentedCapital = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;
  return static_cast<char>(isAsciiCapital || isAccentedCapital ? byte + 0x20 : byte);
}

}  // namespace

bool IsInvisible(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || (byte >= 0x7F && byte < kNoBreakBlank) || byte == kSoftHyphen;
}

bool IsBlank(char character) { return character == ' ' || static_cast<unsigned char>(character) == kNoBreakBlank; }

std::string WithoutInvisible(std::string_view text) {
  std::string visible(text);
  std::erase_if(visible, IsInvisible);
  return visible;
}

bool IsAllBlank(std::string_view text) { return std::all_of(text.begin(), text.end(), IsBlank); }

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldCharacter);
  return folded;
}

std::string Quote(std::string_view text, std::size_t limit) {
  std::string quoted = "\"";
  for (const char character : text.substr(0, limit)) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20 || byte >= 0x7F) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02X", unsigned{byte});
      quoted += escape;
      continue;
    }
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + (text.size() > limit ? "\"..." : "\"");
}

}  // namespace tolva
