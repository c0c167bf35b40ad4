#pragma once

#include <algorithm>
#include <optional>

#include <SDL.h>

namespace tolva {

// In pixels.
struct Size {
  int width = 0;
  int height = 0;

  bool operator==(const Size&) const = default;
};

// A rectangle in pixels, in `int`: SDL's own has 16 bits, so clip before narrowing.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  constexpr int GetRight() const { return x + width; }
  constexpr int GetBottom() const { return y + height; }
  constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }
  // The right and the bottom edge lie outside.
  constexpr bool Contains(int pointX, int pointY) const {
    return pointX >= x && pointX < GetRight() && pointY >= y && pointY < GetBottom();
  }
  // The right and the bottom edge count, too: that is how a click hits.
  constexpr bool IsHitAt(int pointX, int pointY) const {
    return pointX >= x && pointX <= GetRight() && pointY >= y && pointY <= GetBottom();
  }
  constexpr Rect MoveBy(int dx, int dy) const { return {x + dx, y + dy, width, height}; }
  // What both cover; empty when they do not overlap.
  constexpr Rect Intersect(const Rect& other) const {
    const int left = std::max(x, other.x);
    const int top = std::max(y, other.y);
    return {left, top, std::min(GetRight(), other.GetRight()) - left, std::min(GetBottom(), other.GetBottom()) - top};
  }

  bool operator==(const Rect&) const = default;
};

// The same rectangle for SDL's functions, which change what they are given. None when it is empty or needs more than
// 16 bits.
std::optional<SDL_Rect> ToSdlRect(const Rect& rect);

}  // namespace tolva
