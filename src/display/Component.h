#pragma once

#include <cstdint>

#include "controls/ControlLabel.h"
#include "display/PictureIds.h"
#include "sdl/Rect.h"
#include "sdl/Rgb.h"

namespace tolva {

constexpr Rgb kCream{251, 247, 195};

// The sizes from which the place of a component is computed.
struct Surroundings {
  Size holder;   // the control that holds the component
  Size picture;  // the picture that the component measures; 0 by 0 when it is missing
};

// Something of this size in the middle of its holder.
constexpr Rect CenterIn(Size holder, Size size) {
  return {holder.width / 2 - size.width / 2, holder.height / 2 - size.height / 2, size.width, size.height};
}

// ---- Rules for places ----

// A place that never changes.
template <int X, int Y, int Width, int Height>
constexpr Rect FixedPlace(const Surroundings&) {
  return {X, Y, Width, Height};
}

// In the middle of the holder.
template <int Width, int Height>
constexpr Rect CenteredPlace(const Surroundings& around) {
  return CenterIn(around.holder, {Width, Height});
}

// The measured picture in the middle of the screen.
constexpr Rect PlaceTitle(const Surroundings& around) { return CenterIn(around.holder, around.picture); }

enum class ComponentKind : std::uint8_t {
  Panel,  // a ControlBasic that only shows its picture or color
  Label,
  TextBox,     // a line to type in
  Password,    // the same, masked
  Button,      // reports clicks
  Toggle,      // a button that stays pressed
  Window,      // fixed: no close button, cannot be moved
  FreeWindow,  // has a close button, can be moved, comes to the front when clicked
  ListBox,
  ChatBox
};

constexpr std::uint32_t kHeldByScreen = 0xFFFFFFFF;

// A row of a screen's table: everything about one of its controls. The row of the holder comes first. Among the
// components of one holder, later rows are in front.
struct Component {
  std::uint32_t id;
  ComponentKind kind;
  std::uint32_t holder = kHeldByScreen;
  const char* text = "";                         // of a window, its caption
  Rect (*place)(const Surroundings&) = nullptr;  // null for what is never shown
  bool framed = false;
  bool hidden = false;
  Rgb textColor = kWhite;
  Rgb background = kBlack;
  PictureId picture = kNoPicture;  // tiled over the background color
  PictureId pressedPicture = kNoPicture;
  PictureId measured = kNoPicture;  // the picture whose size the place depends on
  ControlLabel::Alignment alignment = ControlLabel::kMiddleLeft;
  bool underlined = false;
  int maxLength = ControlLabel::kTextCapacity - 1;  // of typed text, in characters
};

}  // namespace tolva
