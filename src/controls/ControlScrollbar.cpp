#include "controls/ControlScrollbar.h"

#include <algorithm>
#include <limits>

#include "controls/ControlButton.h"
#include "controls/PartColors.h"
#include "foundation/Guard.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlScrollbar";

constexpr std::uint32_t kIncrementButtonId = 0;
constexpr std::uint32_t kDecrementButtonId = 1;
constexpr std::uint32_t kTrackId = 2;
constexpr std::uint32_t kThumbId = 3;

}  // namespace

ControlScrollbar::ControlScrollbar(std::uint32_t id, SDL_Surface* parentSurface, void* context,
                                   ControlCallback callback)
    : ControlBasic(id, parentSurface, context, callback) {
  GuardControl(kModule, "ControlScrollbar", [&] {
    mIncrementButton = CreateButton(*this, kIncrementButtonId, kPartColor);
    mDecrementButton = CreateButton(*this, kDecrementButtonId, kPartColor);
    mTrack = CreateInto<ControlLabel>(*this, kTrackId);
    mThumb = CreateButton(*mTrack, kThumbId, kPressedPartColor);
    mThumb->SetEnabled(false);
  });
}

ControlButton* ControlScrollbar::CreateButton(ControlBasic& container, std::uint32_t id, Rgb unpressed) {
  auto* button = CreateInto<ControlButton>(container, id);
  button->SetBackgroundColor(unpressed);
  button->SetBackgroundColorPressed(kPressedPartColor);
  return button;
}

// ---- Range ----

void ControlScrollbar::SetVertical(bool vertical) {
  GuardControl(kModule, "SetVertical", [&] {
    if (vertical == mVertical) return;
    mVertical = vertical;
    Refresh(true);
  });
}

void ControlScrollbar::SetMinimum(int minimum) {
  GuardControl(kModule, "SetMinimum", [&] {
    if (minimum > mMaximum) return;
    mMinimum = minimum;
    mValue = std::max(mValue, minimum);
    Refresh(true);
  });
}

void ControlScrollbar::SetMaximum(int maximum) {
  GuardControl(kModule, "SetMaximum", [&] {
    if (maximum < mMinimum) return;
    mMaximum = maximum;
    mValue = std::min(mValue, maximum);
    Refresh(true);
    ReportEvent(kEventMaximum);
  });
}

void ControlScrollbar::SetValue(int value) {
  GuardControl(kModule, "SetValue", [&] {
    mValue = std::clamp(value, mMinimum, mMaximum);
    Refresh(true);
    ReportEvent(kEventValue);
  });
}

void ControlScrollbar::EventHandler(ControlEvent event) {
  GuardControl(kModule, "EventHandler", [&] {
    if (event.code != ControlButton::kEventReleased) return;
    if (event.sender == mIncrementButton && mValue < mMaximum) {
      SetValue(mValue + 1);
    } else if (event.sender == mDecrementButton && mValue > mMinimum) {
      SetValue(mValue - 1);
    } else {
      return;
    }
    Refresh(true);
  });
}

// ---- Look ----

void ControlScrollbar::SetBorderSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBorderSurface", [&] {
    ControlBasic::SetBorderSurface(surface);
    mIncrementButton->SetBorderSurface(surface);
    mDecrementButton->SetBorderSurface(surface);
    mTrack->SetBorderSurface(surface);
    mThumb->SetBorderSurface(surface);
  });
}

void ControlScrollbar::SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed) {
  GuardControl(kModule, "SetDecrementButtonSurfaces", [&] {
    mDecrementButton->SetSurfacePressed(pressed);
    mDecrementButton->SetSurfaceUnpressed(unpressed);
  });
}

void ControlScrollbar::SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed) {
  GuardControl(kModule, "SetIncrementButtonSurfaces", [&] {
    mIncrementButton->SetSurfacePressed(pressed);
    mIncrementButton->SetSurfaceUnpressed(unpressed);
  });
}

void ControlScrollbar::SetBackgroundSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBackgroundSurface", [&] { mTrack->SetBackgroundSurface(surface); });
}

void ControlScrollbar::SetValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetValueBackgroundColor", [&] { mThumb->SetBackgroundColor(r, g, b); });
}

// ---- Layout ----

void ControlScrollbar::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    ControlBasic::Refresh(recursive);
    const int length = mVertical ? GetHeight() : GetWidth();
    PlaceAlong(*mDecrementButton, 0, kButtonSize);
    PlaceAlong(*mIncrementButton, length - kButtonSize, kButtonSize);
    PlaceAlong(*mTrack, kButtonSize, length - 2 * kButtonSize);
    PlaceThumb();
  });
}

void ControlScrollbar::PlaceAlong(ControlBasic& control, int start, int length) {
  if (mVertical) {
    control.SetPosition(0, start, GetWidth(), length);
  } else {
    control.SetPosition(start, 0, length, GetHeight());
  }
}

void ControlScrollbar::PlaceThumb() {
  const int border = GetBorderWidth();
  if (mVertical) {
    const int offset = GetThumbOffset(mTrack->GetHeight() - mThumb->GetHeight() - 2 * border);
    mThumb->SetPosition(border, border + offset, GetWidth() - 2 * border, kButtonSize);
  } else {
    const int offset = GetThumbOffset(mTrack->GetWidth() - mThumb->GetWidth() - 2 * border);
    mThumb->SetPosition(border + offset, border, kButtonSize, kButtonSize - 2 * border);
  }
}

int ControlScrollbar::GetThumbOffset(int span) const {
  // In floating point and clamped, since the widest ranges overflow integers.
  const double range = static_cast<double>(mMaximum) - mMinimum;
  if (range == 0) return 0;
  constexpr double kFarthest = std::numeric_limits<Sint16>::max();
  return static_cast<int>(std::clamp(span / range * mValue, -kFarthest, kFarthest));
}

}  // namespace tolva
