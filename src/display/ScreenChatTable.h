#pragma once

#include <span>

#include "display/Component.h"

namespace tolva {

// The lobby's components: ids, looks, texts and places.
std::span<const Component> GetScreenChatTable();

}  // namespace tolva
