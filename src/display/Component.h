#pragma once

#include <cstdint>

#include "controls/ControlLabel.h"
#include "display/PictureIds.h"
#include "sdl/Rect.h"
#include "sdl/Rgb.h"

namespace tolva {

constexpr Rgb kCream{251, 247, 195};

// What the place of a component follows from.
struct Surroundings {
  Size holder;   // of the control that holds the component
  Size picture;  // of the picture that the component measures; 0 by 0 without it
};

// A place that never changes.
template <int X, int Y, int Width, int Height>
constexpr Rect FixedPlace(const Surroundings&) {
  return {X, Y, Width, Height};
}

// The title picture, in the middle of the screen.
constexpr Rect PlaceTitle(const Surroundings& around) {
  return {around.holder.width / 2 - around.picture.width / 2, around.holder.height / 2 - around.picture.height / 2,
          around.picture.width, around.picture.height};
}

enum class ComponentKind : std::uint8_t {
  Panel,  // a ControlBasic that only shows its picture or colour
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

// One row of a screen's table: everything about one of its controls. A row stands behind the row of its holder; among
// components of one holder the later lies in front of the earlier.
struct Component {
  std::uint32_t id;
  ComponentKind kind;
  std::uint32_t holder = kHeldByScreen;
  const char* text = "";                         // a window's caption, everybody else's text
  Rect (*place)(const Surroundings&) = nullptr;  // none: never placed, for what is never shown
  bool framed = false;
  bool hidden = false;
  Rgb textColor = kWhite;
  Rgb background = kBlack;
  PictureId picture = kNoPicture;  // tiled over the background colour
  PictureId pressedPicture = kNoPicture;
  PictureId measured = kNoPicture;  // the picture whose size the place depends on
  ControlLabel::Alignment alignment = ControlLabel::kMiddleLeft;
  bool underlined = false;
  int maxLength = ControlLabel::kTextCapacity - 1;  // of what can be typed, in characters
};

}  // namespace tolva
