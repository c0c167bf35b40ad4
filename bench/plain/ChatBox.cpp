#include "plain/ChatBox.h"

#include <memory>
#include <utility>
#include <vector>

#include "controls/ControlChatBox.h"
#include "controls/ControlScrollbar.h"
#include "foundation/FlagScope.h"
#include "plain/Label.h"
#include "sdl/Surface.h"
#include "sdl/Text.h"

namespace tolva::plain {
namespace {

constexpr int kGap = 10;

}  // namespace

void ChatBox::AddEntry(const char* name, const char* text) {
  const std::string shownName = std::string("[").append(name).append("]");
  const int nameWidth = MeasureText(ControlTextBasic::GetFont(), shownName.c_str(), "ChatBox", "AddEntry").width + kGap;
  const int width = GetWidth() - (2 * GetBorderWidth() + kGap) - mScrollbar->GetWidth() - nameWidth;
  std::vector<std::string> wrapped;
  ControlChatBox::WrapText(text, width, ControlTextBasic::GetFont(), wrapped);
  for (std::string& line : wrapped) {
    mLines.push_back({nameWidth, &line == &wrapped.front() ? shownName : "", std::move(line)});
    if (mLines.size() > kMaxLines) mLines.pop_front();
  }
  Refresh(false);
  ScrollTo(mScrollbar->GetMaximum());
}

void ChatBox::ScrollTo(int line) { mScrollbar->SetValue(line); }

void ChatBox::Refresh(bool recursive) {
  if (mRefreshing) return;
  const FlagScope once(mRefreshing, true);
  ControlListBox::Refresh(recursive);
}

void ChatBox::CreateEntryLabels() {
  for (int row = 0; row < mVisibleCount; ++row) {
    const auto index = static_cast<std::size_t>(mScrollbar->GetValue() + row);
    const Line line = index < mLines.size() ? mLines[index] : Line{kGap, "", ""};
    const int border = GetBorderWidth();
    const int y = border + kRowHeight * row;
    const auto label = static_cast<std::uint32_t>(2 * row);
    AddLabel(label, border, y, line.nameWidth, line.name);
    AddLabel(label + 1, line.nameWidth + border, y, GetWidth() - 2 * border - line.nameWidth - mScrollbar->GetWidth(),
             line.text);
  }
}

void ChatBox::AddLabel(std::uint32_t index, int x, int y, int width, const std::string& text) {
  auto label = std::make_unique<Label>(kFirstLabelId + index, GetBaseSurface(), nullptr, nullptr);
  label->SetRefreshEnabled(false);
  label->SetPosition(x, y, width, kRowHeight);
  // A new surface was made in a format of its own and converted.
  const SurfacePtr converted = CopyForDisplay(*label->GetBaseSurface());
  label->SetText(text);
  label->SetBackgroundColor(GetBackgroundColor());
  label->SetRefreshEnabled(true);
  label->SetForegroundColor(mForegroundColor);
  AddSubControl(label.release());
}

void ChatBox::DeleteEntryLabels() {
  for (int index = 0; index < 2 * mVisibleCount; ++index) {
    RemoveSubControl(kFirstLabelId + static_cast<std::uint32_t>(index));
  }
  mVisibleCount = 0;
}

}  // namespace tolva::plain
