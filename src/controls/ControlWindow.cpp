#include "controls/ControlWindow.h"

#include "controls/ControlButton.h"
#include "controls/PartColors.h"
#include "foundation/Guard.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlWindow";

constexpr std::uint32_t kCloseButtonId = 0;
constexpr std::uint32_t kCaptionBarId = 1;
constexpr int kCloseButtonSize = 14;
constexpr Rgb kCaptionColor{41, 65, 132};

}  // namespace

ControlWindow::ControlWindow(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : ControlBasic(id, parentSurface, context, callback) {
  GuardControl(kModule, "ControlWindow", [&] {
    mCaptionBar = CreateInto<ControlLabel>(*this, kCaptionBarId);
    mCaptionBar->SetAlignment(ControlLabel::kMiddleLeft);
    mCaptionBar->SetBackgroundColor(kCaptionColor);
    mCaptionBar->SetForegroundColor(kWhite);
    mCaptionBar->SetHeight(GetCaptionHeight());
    mCloseButton = CreateInto<ControlButton>(*mCaptionBar, kCloseButtonId);
    mCloseButton->SetAlignment(ControlLabel::kMiddleCenter);
    mCloseButton->SetBackgroundColor(kPartColor);
    mCloseButton->SetBackgroundColorPressed(kPressedPartColor);
    mCloseButton->SetForegroundColor(kBlack);
    mCloseButton->SetSize(kCloseButtonSize, kCloseButtonSize);
    mCloseButton->SetY((GetCaptionHeight() - kCloseButtonSize) / 2);
    Refresh(true);
  });
}

void ControlWindow::SetBorderSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBorderSurface", [&] {
    ControlBasic::SetBorderSurface(surface);
    mCaptionBar->SetBorderSurface(surface);
    mCloseButton->SetBorderSurface(surface);
  });
}

void ControlWindow::SetCaption(const char* text) {
  GuardControl(kModule, "SetCaption", [&] { mCaptionBar->SetText(text); });
}

void ControlWindow::SetCaptionColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetCaptionColor", [&] {
    mCaptionBar->SetBackgroundColor(r, g, b);
    Refresh(true);
  });
}

void ControlWindow::SetCaptionBackgroundSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetCaptionBackgroundSurface", [&] {
    mCaptionBar->SetBackgroundSurface(surface);
    Refresh(true);
  });
}

void ControlWindow::SetControlBox(bool controlBox) {
  GuardControl(kModule, "SetControlBox", [&] {
    mCloseButton->SetEnabled(controlBox);
    mCloseButton->SetVisible(controlBox);
    // The caption bar must be painted again to remove the button.
    Refresh(true);
  });
}

void ControlWindow::SetCloseButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed) {
  GuardControl(kModule, "SetCloseButtonSurfaces", [&] {
    mCloseButton->SetSurfacePressed(pressed);
    mCloseButton->SetSurfaceUnpressed(unpressed);
  });
}

void ControlWindow::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    ControlBasic::Refresh(recursive);
    mCaptionBar->SetWidth(GetWidth());
    // As far from the right edge as from the top.
    mCloseButton->SetX(GetWidth() - mCloseButton->GetWidth() - mCloseButton->GetY());
  });
}

void ControlWindow::EventHandler(ControlEvent event) {
  GuardControl(kModule, "EventHandler", [&] {
    if (event.sender == mCloseButton && event.code == ControlButton::kEventReleased) {
      SetVisible(false);
      ReportEvent(kEventClosed);
    } else if (event.sender == mCaptionBar && event.code == ControlLabel::kEventMouseMotion && mMovable) {
      Drag();
    }
  });
}

void ControlWindow::Drag() {
  int dx = 0;
  int dy = 0;
  const Uint8 buttons = SDL_GetRelativeMouseState(&dx, &dy);
  if ((buttons & SDL_BUTTON(SDL_BUTTON_LEFT)) != 0) SetPosition(GetX() + dx, GetY() + dy);
}

}  // namespace tolva
