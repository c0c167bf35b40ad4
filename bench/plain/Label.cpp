#include "plain/Label.h"

#include "controls/ControlLabel.h"
#include "plain/Copy.h"
#include "sdl/Text.h"

namespace tolva::plain {

void Label::Refresh(bool recursive) {
  if (!IsRefreshEnabled()) return;
  ControlTextBasic::Refresh(recursive);
  const Size size = MeasureText(GetFont(), mText.empty() ? "dummy" : mText.c_str(), "Label", "Refresh");
  mPicture = RenderText(GetFont(), mText.c_str(), GetForegroundColor());
  if (mPicture == nullptr) return;
  const Rect part{0, 0, GetWidth() - 2 * ControlLabel::kMargin, GetHeight()};
  CopyPart(mPicture.get(), part, GetBaseSurface(), ControlLabel::kMargin, (GetHeight() - size.height) / 2);
}

void Label::SetText(const std::string& text) {
  mText = text;
  Refresh(true);
}

}  // namespace tolva::plain
