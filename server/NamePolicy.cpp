#include "server/NamePolicy.h"

#include <algorithm>

#include "server/common/ChatText.h"

namespace tolva {
namespace {

// Whether it is "Server", also with marks around or between the letters. The client shows the server's own lines under
// that name.
bool LooksLikeServer(std::string_view name) {
  std::string letters = FoldCase(name);
  std::erase_if(letters, [](char character) { return character >= ' ' && (character < 'a' || character > 'z'); });
  return letters == "server";
}

}  // namespace

std::string RefuseName(std::string_view name) {
  if (IsAllBlank(name)) return "Please type a name.";
  if (name.size() > kMaxNameLength) return "Please choose a name of at most 16 characters.";
  if (std::any_of(name.begin(), name.end(), IsInvisible)) return "Please use letters and signs that can be seen.";
  if (IsBlank(name.front()) || IsBlank(name.back())) return "Please leave out the blanks around the name.";
  // Two blanks in a row, or a no-break one, look like a single blank, so two users would seem to have one name.
  if (name.find("  ") != name.npos || name.find('\xA0') != name.npos) return "Please use single blanks in the name.";
  // The client puts brackets around names; asterisks mark the server's lines.
  if (name.find_first_of("[](){}<>*") != name.npos) return "Please choose a name without brackets and asterisks.";
  if (LooksLikeServer(name)) return "That name belongs to the server. Please choose another one.";
  return "";
}

}  // namespace tolva
