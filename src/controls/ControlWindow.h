#pragma once

#include "controls/ControlBasic.h"

namespace tolva {

class ControlButton;
class ControlLabel;

// A panel with a caption bar, by which it is dragged, and a close button, which hides it. Its container must repaint
// itself in every frame (SetClearOnBlit), or a dragged window leaves a trail. The caption bar has the sub-control id 1.
class ControlWindow : public ControlBasic {
 public:
  static constexpr std::uint32_t kEventClosed = 0;

  ControlWindow(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void SetBorderSurface(SDL_Surface* surface) override;
  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;

  void SetCaption(const char* text);
  void SetCaptionColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void SetCaptionBackgroundSurface(SDL_Surface* surface);
  // Whether there is a close button.
  void SetControlBox(bool controlBox);
  void SetCloseButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetMovable(bool movable) { mMovable = movable; }

  // Place contents below this height.
  static constexpr int GetCaptionHeight() { return 20; }

 private:
  void Drag();

  // The window owns the caption bar, which owns the close button.
  ControlLabel* mCaptionBar = nullptr;
  ControlButton* mCloseButton = nullptr;
  bool mMovable = true;
};

}  // namespace tolva
