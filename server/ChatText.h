#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolva {

// What people type, taken as Latin-1, which is how the client shows it.

// Control characters, and the soft hyphen that shows as nothing.
bool IsInvisible(char character);
bool IsBlank(char character);

// The text without invisible characters.
std::string WithoutInvisible(std::string_view text);
bool IsAllBlank(std::string_view text);
// The text in small letters, accented ones included: names that differ only in case are one name to people.
std::string FoldCase(std::string_view text);
// The text in quotation marks as printable ASCII, cut after `limit` characters of its own, so that nothing a client
// writes can forge a line of the log or reach the terminal that shows it.
std::string Quote(std::string_view text, std::size_t limit = 200);

}  // namespace tolva
