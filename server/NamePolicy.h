#pragma once

#include <string>
#include <string_view>

namespace tolva {

constexpr std::size_t kLongestName = 16;

// Why nobody may bear this name, as a sentence that tells the player what to do; empty when somebody may.
std::string RefuseName(std::string_view name);

}  // namespace tolva
