#include "plain/TextBox.h"

#include <cstddef>

#include "controls/ControlLabel.h"
#include "sdl/Text.h"

namespace tolva::plain {

void TextBox::SetEntered(const std::string& text) {
  mEntered = text;
  const int room = GetWidth() - 2 * ControlLabel::kMargin;
  std::size_t first = 0;
  if (IsActive()) {
    while (MeasureText(GetFont(), mEntered.c_str() + first, "TextBox", "SetText").width > room) ++first;
  }
  SetText(mEntered.substr(first));
}

void TextBox::SetActive(bool active) {
  const bool before = IsActive();
  ControlBasic::SetActive(active);
  if (active != before) SetEntered(mEntered);
}

}  // namespace tolva::plain
