#include "sdl/Rect.h"

#include <utility>

namespace tolva {

std::optional<SDL_Rect> ToSdlRect(const Rect& rect) {
  const bool fits = std::in_range<Sint16>(rect.x) && std::in_range<Sint16>(rect.y) &&
                    std::in_range<Uint16>(rect.width) && std::in_range<Uint16>(rect.height);
  if (!fits || rect.IsEmpty()) return std::nullopt;
  return SDL_Rect{static_cast<Sint16>(rect.x), static_cast<Sint16>(rect.y), static_cast<Uint16>(rect.width),
                  static_cast<Uint16>(rect.height)};
}

}  // namespace tolva
