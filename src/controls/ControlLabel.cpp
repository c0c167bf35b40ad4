#include "controls/ControlLabel.h"

#include <algorithm>
#include <string>

#include "foundation/Guard.h"
#include "foundation/Text.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Text.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlLabel";

// The widest surface that SDL builds.
constexpr int kMaxSurfaceWidth = 16383;

// Where a text of `length` pixels starts along an axis: 0 at the near end, 1 in the middle, 2 at the far end.
int AlignAlongAxis(std::uint32_t place, int room, int length, int margin) {
  if (place == 0) return margin;
  return place == 1 ? (room - length) / 2 : room - length - margin;
}

// The longest start of `text` that can be rendered. The rest would lie beyond the edge of any control.
std::string CutToSurface(TTF_Font* font, std::string text, int width) {
  while (width > kMaxSurfaceWidth) {
    text.pop_back();
    width = MeasureText(font, text.c_str(), kModule, "Refresh").width;
  }
  return text;
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
    UpdateTextSurface();
    PlaceText();
    PaintText();
  });
}

void ControlLabel::UpdateTextSurface() {
  mTextSurface.reset();
  mTextWidth = 0;
  TTF_Font* font = GetFont();
  if (font == nullptr) return;
  const bool empty = mText[0] == '\0';
  // An empty line keeps its height: a text box shows a cursor in it.
  const Size size = MeasureText(font, empty ? "dummy" : mText, kModule, "Refresh");
  mTextHeight = size.height;
  if (empty) return;
  mTextWidth = size.width;
  // The library fails on a text without pixels.
  const std::string shown = CutToSurface(font, mText, size.width);
  if (shown.empty() || size.width <= 0) return;
  mTextSurface = CheckSurface(RenderText(font, shown.c_str(), GetForegroundColor()), kModule, "Refresh");
}

void ControlLabel::PlaceText() {
  const bool known = mAlignment <= kBottomRight;
  mTextX = known ? AlignAlongAxis(mAlignment % 3, GetWidth(), mTextWidth, kMargin) : 0;
  mTextY = known ? AlignAlongAxis(mAlignment / 3, GetHeight(), mTextHeight, kMargin) : 0;
}

void ControlLabel::PaintText() {
  if (mTextSurface == nullptr || GetBaseSurface() == nullptr) return;
  const Rect part{0, 0, GetWidth() - 2 * kMargin, GetHeight()};
  CheckSdl(CopyPart(mTextSurface.get(), part, GetBaseSurface(), mTextX, mTextY), kModule, "Refresh");
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
