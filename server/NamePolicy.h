#pragma once

#include <string>
#include <string_view>

namespace tolva {

constexpr std::size_t kMaxNameLength = 16;

// Why nobody may have this name, as a sentence that says what the player can do; empty for an acceptable name.
std::string RefuseName(std::string_view name);

}  // namespace tolva
