#pragma once

#include "controls/ControlBasic.h"

namespace tolva {

class ControlButton;
class ControlLabel;

// Two arrow buttons that step a value through a range, and a track whose thumb shows where it stands.
class ControlScrollbar : public ControlBasic {
 public:
  // `SetValue` was called, by the owner or by an arrow button; also when the value stayed the same.
  static constexpr std::uint32_t kEventValue = 0;
  static constexpr std::uint32_t kEventMaximum = 1;

  // The edge length of the arrow buttons and the thumb along the track, and the usual thickness of a scrollbar.
  static constexpr int kButtonSize = 16;

  ControlScrollbar(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void SetBorderSurface(SDL_Surface* surface) override;
  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;

  // The picture behind the thumb.
  virtual void SetBackgroundSurface(SDL_Surface* surface);

  void SetVertical(bool vertical);
  // Ignored when above the maximum. The value follows.
  void SetMinimum(int minimum);
  // Ignored when below the minimum. The value follows.
  void SetMaximum(int maximum);
  // Clamps to the range.
  void SetValue(int value);
  int GetValue() const { return mValue; }
  int GetMaximum() const { return mMaximum; }

  void SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  // The thumb's colour.
  void SetValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);

 private:
  // Where the thumb starts on a track that leaves it `span` pixels to move.
  int GetThumbOffset(int span) const;
  ControlButton* CreateButton(ControlBasic& container, std::uint32_t id, Rgb unpressed);
  // Gives a control the scrollbar's whole thickness from `start` on.
  void PlaceAlong(ControlBasic& control, int start, int length);
  void PlaceThumb();

  int mMinimum = 0;
  int mMaximum = 10;
  int mValue = 0;
  bool mVertical = false;
  // Owned by the list of sub-controls; the thumb by that of the track.
  ControlButton* mIncrementButton = nullptr;
  ControlButton* mDecrementButton = nullptr;
  ControlLabel* mTrack = nullptr;
  ControlButton* mThumb = nullptr;
};

}  // namespace tolva
