#pragma once

#include "controls/ControlBasic.h"

namespace tolva {

class ControlButton;
class ControlLabel;

// Two arrow buttons that change a value by 1 within a range, and between them a track with a thumb that marks it.
class ControlScrollbar : public ControlBasic {
 public:
  // Somebody set the value, perhaps to the same number again: an arrow button counts as much as code.
  static constexpr std::uint32_t kEventValue = 0;
  // Somebody set the maximum.
  static constexpr std::uint32_t kEventMaximum = 1;

  // Pixels of buttons and thumb along the track, and the usual width of a vertical scrollbar.
  static constexpr int kButtonSize = 16;

  ControlScrollbar(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void SetBorderSurface(SDL_Surface* surface) override;
  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;

  // Tiled behind the thumb; null for none. The caller keeps it.
  virtual void SetBackgroundSurface(SDL_Surface* surface);

  void SetVertical(bool vertical);
  // Ignored when above the maximum. Raises a smaller value.
  void SetMinimum(int minimum);
  // Ignored when below the minimum. Lowers a larger value.
  void SetMaximum(int maximum);
  // Clamps to the range.
  void SetValue(int value);
  int GetValue() const { return mValue; }
  int GetMaximum() const { return mMaximum; }

  void SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  // The color of the thumb.
  void SetValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);

 private:
  // How far along a track the thumb starts, when it has `span` pixels to move.
  int GetThumbOffset(int span) const;
  ControlButton* CreateButton(ControlBasic& container, std::uint32_t id, Rgb unpressed);
  // Places a control along the scrollbar, across its whole width.
  void PlaceAlong(ControlBasic& control, int start, int length);
  void PlaceThumb();

  int mMinimum = 0;
  int mMaximum = 10;
  int mValue = 0;
  bool mVertical = false;
  // The scrollbar owns all but the thumb, which the track owns.
  ControlButton* mIncrementButton = nullptr;
  ControlButton* mDecrementButton = nullptr;
  ControlLabel* mTrack = nullptr;
  ControlButton* mThumb = nullptr;
};

}  // namespace tolva
