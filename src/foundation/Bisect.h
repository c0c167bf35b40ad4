#pragma once

#include <cstddef>

namespace tolva {

// The first number from `from` on for which `holds`, or `to` when it holds for none before that. Once it holds, it must
// hold for all that follow. Asks about as often as `to - from` can be halved.
template <typename Predicate>
std::size_t Bisect(std::size_t from, std::size_t to, Predicate&& holds) {
  while (from < to) {
    const std::size_t middle = from + (to - from) / 2;
    if (holds(middle)) {
      to = middle;
    } else {
      from = middle + 1;
    }
  }
  return from;
}

}  // namespace tolva
