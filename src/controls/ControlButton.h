#pragma once

#include "controls/ControlLabel.h"

namespace tolva {

// A push button. Act on kEventReleased: a click is a press on the button and the release after it, wherever the pointer
// is by then.
class ControlButton : public ControlLabel {
 public:
  static constexpr std::uint32_t kEventPressed = 0;
  static constexpr std::uint32_t kEventReleased = 1;
  // Reported before kEventPressed.
  static constexpr std::uint32_t kEventToggled = 2;

  ControlButton(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  using ControlLabel::SetBackgroundColor;
  // The color while released.
  void SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) override;
  void Refresh(bool recursive) override;
  void SdlEventHandler(SDL_Event event) override;

  void SetBackgroundColorPressed(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void SetBackgroundColorPressed(Rgb color) { SetBackgroundColorPressed(color.r, color.g, color.b); }
  // Shown instead of the colors; null for none. The caller keeps them.
  void SetSurfacePressed(SDL_Surface* surface);
  void SetSurfaceUnpressed(SDL_Surface* surface);

  void SetPressed(bool pressed);
  bool IsPressed() const { return mPressed; }
  // Whether the button stays pressed until it is pressed again.
  void SetToggle(bool toggle) { mToggle = toggle; }

 private:
  Rgb mPressedColor;
  Rgb mUnpressedColor;
  SDL_Surface* mPressedSurface = nullptr;  // borrowed, as is the next
  SDL_Surface* mUnpressedSurface = nullptr;
  bool mPressed = false;
  bool mToggle = false;
};

}  // namespace tolva
