#include "display/Widget.h"

#include "foundation/Guard.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"

namespace tolva {

Widget::Widget(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height)
    : mPlace{x, y, width, height} {}

void Widget::Blit(SDL_Surface* target) {
  Guard("Widget", "Blit", [&] {
    if (mSurface == nullptr) return;
    const Rect shown{mSourceX, mSourceY, mPlace.width, mPlace.height};
    CheckSdl(CopyPart(mSurface.get(), shown, target, mPlace.x, mPlace.y), "Widget", "Blit");
  });
}

void Widget::HandleEvent(SDL_Event /*event*/) {}

void Widget::SetSource(std::int32_t x, std::int32_t y) {
  mSourceX = x;
  mSourceY = y;
}

}  // namespace tolva
