#include "controls/ControlButton.h"

#include "foundation/Guard.h"

namespace tolva {

namespace {
constexpr char kModule[] = "ControlButton";
}

ControlButton::ControlButton(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : ControlLabel(id, parentSurface, context, callback), mUnpressedColor(GetBackgroundColor()) {
  GuardControl(kModule, "ControlButton", [&] {
    SetAlignment(kMiddleCenter);
    SetBackgroundColorPressed(221, 221, 221);
  });
}

void ControlButton::SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetBackgroundColor", [&] {
    mUnpressedColor = {r, g, b};
    if (!mPressed) ControlBasic::SetBackgroundColor(r, g, b);
  });
}

void ControlButton::SetBackgroundColorPressed(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetBackgroundColorPressed", [&] {
    mPressedColor = {r, g, b};
    if (mPressed) ControlBasic::SetBackgroundColor(r, g, b);
  });
}

void ControlButton::SetSurfacePressed(SDL_Surface* surface) {
  GuardControl(kModule, "SetSurfacePressed", [&] {
    mPressedSurface = surface;
    if (mPressed) SetBackgroundSurface(surface);
  });
}

void ControlButton::SetSurfaceUnpressed(SDL_Surface* surface) {
  GuardControl(kModule, "SetSurfaceUnpressed", [&] {
    mUnpressedSurface = surface;
    if (!mPressed) SetBackgroundSurface(surface);
  });
}

void ControlButton::SetPressed(bool pressed) {
  GuardControl(kModule, "SetPressed", [&] {
    if (pressed == mPressed) return;
    mPressed = pressed;
    SDL_Surface* surface = pressed ? mPressedSurface : mUnpressedSurface;
    SetBackgroundSurface(surface);
    if (surface != nullptr) return;
    const Rgb color = pressed ? mPressedColor : mUnpressedColor;
    ControlBasic::SetBackgroundColor(color.r, color.g, color.b);
  });
}

void ControlButton::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] { ControlLabel::Refresh(recursive); });
}

void ControlButton::SdlEventHandler(SDL_Event event) {
  GuardControl(kModule, "SdlEventHandler", [&] {
    if (event.type == SDL_MOUSEBUTTONDOWN) {
      SetPressed(mToggle ? !mPressed : true);
      if (mToggle) ReportEvent(kEventToggled);
      ReportEvent(kEventPressed);
    } else if (event.type == SDL_MOUSEBUTTONUP) {
      if (!mToggle) SetPressed(false);
      ReportEvent(kEventReleased);
    }
  });
}

}  // namespace tolva
