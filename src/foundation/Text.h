#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace tolva {

// Copies a zero-terminated text into a buffer of `capacity` bytes (at least 1), cut to capacity - 1 characters and
// always terminated. A null text counts as empty. Text and buffer may overlap: a setter may be given its own buffer.
inline void CopyText(char* to, std::size_t capacity, const char* from) {
  const std::size_t length = from == nullptr ? 0 : strnlen(from, capacity - 1);
  if (length > 0) std::memmove(to, from, length);
  to[length] = '\0';
}

template <std::size_t Capacity>
void CopyText(char (&to)[Capacity], const char* from) {
  CopyText(to, Capacity, from);
}

// The first `length` characters of `text`; a null text counts as empty.
inline std::string CutText(const char* text, std::size_t length) {
  return text == nullptr ? std::string() : std::string(text, strnlen(text, length));
}

}  // namespace tolva
