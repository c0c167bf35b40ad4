#pragma once

#include <cstddef>
#include <cstring>

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

}  // namespace tolva
