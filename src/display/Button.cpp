#include "display/Button.h"

#include "controls/MouseWheel.h"
#include "foundation/Guard.h"

namespace tolva {

Button::Button(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint32_t pictureId,
               InfoHandler* infoHandler)
    : Widget(x, y, width, height), mArchive(std::make_unique<Archive>("Graphics", infoHandler)) {
  Guard("Button", "Button", [&] { mSurface = mArchive->LoadImage(pictureId); });
}

void Button::Blit(SDL_Surface* target) {
  Guard("Button", "Blit", [&] { Widget::Blit(target); });
}

void Button::HandleEvent(SDL_Event event) {
  Guard("Button", "HandleEvent", [&] {
    if (event.type == SDL_MOUSEBUTTONDOWN && !IsWheel(event)) SetActive(!mPressed);
  });
}

void Button::SetActive(bool pressed) {
  Guard("Button", "SetActive", [&] {
    mPressed = pressed;
    SetSource(0, pressed ? GetPlace().height : 0);
  });
}

}  // namespace tolva
