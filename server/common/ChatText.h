#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolva {

// What people type, taken as Latin-1, as the client shows it.

// Control characters, and the soft hyphen, which shows as nothing.
bool IsInvisible(char character);
bool IsBlank(char character);

// The text without invisible characters.
std::string WithoutInvisible(std::string_view text);
bool IsAllBlank(std::string_view text);
// The text in lower case, accented letters included: people take names that differ only in case for one name.
std::string FoldCase(std::string_view text);
// The text in quotation marks as printable ASCII, cut to its first `limit` characters, so that nothing a client sends
// can forge a line of the log or control the terminal that shows it.
std::string Quote(std::string_view text, std::size_t limit = 200);

}  // namespace tolva
