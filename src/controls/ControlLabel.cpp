#include "controls/ControlLabel.h"

#include <algorithm>

#include "foundation/Guard.h"
#include "foundation/Text.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Text.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlLabel";

// Where a text of `length` pixels starts along an axis: 0 at the near end, 1 in the middle, 2 at the far end.
int AlignAlongAxis(std::uint32_t place, int room, int length, int margin) {
  if (place == 0) return margin;
  return place == 1 ? (room - length) / 2 : room - length - margin;
}

}  // namespace

ControlLabel::ControlLabel(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : ControlTextBasic(id, parentSurface, context, callback) {}

void ControlLabel::SetText(const char* text) {
  GuardControl(kModule, "SetText", [&] {
    CopyText(mText, static_cast<std::size_t>(mMaxLength) + 1, text);
    Refresh(true);
  });
}

void ControlLabel::SetAlignment(std::uint32_t alignment) {
  GuardControl(kModule, "SetAlignment", [&] {
    mAlignment = alignment;
    Refresh(true);
  });
}

void ControlLabel::SetMaxLength(int length) { mMaxLength = std::clamp(length, 0, kTextCapacity - 1); }

void ControlLabel::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    ControlTextBasic::Refresh(recursive);
    SDL_Surface* picture = RenderText();
    PlaceText();
    PaintText(picture);
  });
}

SDL_Surface* ControlLabel::RenderText() {
  mTextWidth = 0;
  TTF_Font* font = GetFont();
  if (font == nullptr) return nullptr;
  if (mText[0] == '\0') {
    // An empty line keeps its height: a text box shows a cursor in it.
    mTextHeight = MeasureText(font, "dummy", kModule, "Refresh").height;
    return nullptr;
  }
  const RenderedText& text = GetTexts().Get(*font, mText, GetForegroundColor(), kModule, "Refresh");
  mTextWidth = text.size.width;
  mTextHeight = text.size.height;
  return text.picture.get();
}

void ControlLabel::PlaceText() {
  const bool known = mAlignment <= kBottomRight;
  mTextX = known ? AlignAlongAxis(mAlignment % 3, GetWidth(), mTextWidth, kMargin) : 0;
  mTextY = known ? AlignAlongAxis(mAlignment / 3, GetHeight(), mTextHeight, kMargin) : 0;
}

void ControlLabel::PaintText(SDL_Surface* picture) {
  if (picture == nullptr || GetBaseSurface() == nullptr) return;
  const Rect part{0, 0, GetWidth() - 2 * kMargin, GetHeight()};
  CheckSdl(CopyPart(picture, part, GetBaseSurface(), mTextX, mTextY), kModule, "Refresh");
}

void ControlLabel::SdlEventHandler(SDL_Event event) {
  GuardControl(kModule, "SdlEventHandler", [&] {
    switch (event.type) {
      case SDL_MOUSEBUTTONDOWN:
        return ReportEvent(kEventMouseDown);
      case SDL_MOUSEBUTTONUP:
        return ReportEvent(kEventMouseUp);
      case SDL_MOUSEMOTION:
        return ReportEvent(kEventMouseMotion);
      default:
        return;
    }
  });
}

}  // namespace tolva
