#pragma once

#include "controls/ControlBasic.h"

namespace tolva {

class ControlButton;
class ControlLabel;

// A panel with a caption bar that it can be dragged by and a close button that hides it. Its container must repaint
// itself every frame, or a dragged window leaves a trail. The sub-control id 1 is taken by the caption bar.
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

  // Contents are laid out below this height.
  static constexpr int GetCaptionHeight() { return 20; }

 private:
  void Drag();

  // Owned by the list of sub-controls; the close button by that of the caption bar.
  ControlLabel* mCaptionBar = nullptr;
  ControlButton* mCloseButton = nullptr;
  bool mMovable = true;
};

}  // namespace tolva
