#pragma once

#include "controls/ControlLabel.h"

namespace tolva {

// A push button. A click is a press on it and the release that follows, wherever the mouse is by then: act on
// kEventReleased.
class ControlButton : public ControlLabel {
 public:
  static constexpr std::uint32_t kEventPressed = 0;
  static constexpr std::uint32_t kEventReleased = 1;
  // Reported before kEventPressed.
  static constexpr std::uint32_t kEventToggled = 2;

  ControlButton(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  // The colour while not pressed.
  void SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) override;
  void Refresh(bool recursive) override;
  void SdlEventHandler(SDL_Event event) override;

  void SetBackgroundColorPressed(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // Pictures shown instead of the colours; null for none.
  void SetSurfacePressed(SDL_Surface* surface);
  void SetSurfaceUnpressed(SDL_Surface* surface);

  void SetPressed(bool pressed);
  bool IsPressed() const { return mPressed; }
  // Whether a press flips the state instead of holding it.
  void SetToggle(bool toggle) { mToggle = toggle; }

 private:
  Rgb mPressedColor;
  Rgb mUnpressedColor;
  SDL_Surface* mPressedSurface = nullptr;
  SDL_Surface* mUnpressedSurface = nullptr;
  bool mPressed = false;
  bool mToggle = false;
};

}  // namespace tolva
