#include "controls/ControlListBox.h"

#include <algorithm>

#include "controls/ControlLabel.h"
#include "controls/ControlScrollbar.h"
#include "controls/MouseWheel.h"
#include "foundation/Guard.h"
#include "foundation/Text.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlListBox";

constexpr std::uint32_t kScrollbarId = 0;

}  // namespace

ControlListBox::ControlListBox(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : ControlBasic(id, parentSurface, context, callback) {
  GuardControl(kModule, "ControlListBox", [&] {
    mScrollbar = CreateInto<ControlScrollbar>(*this, kScrollbarId);
    mScrollbar->SetVertical(true);
    mScrollbar->SetSize(ControlScrollbar::kButtonSize, 0);
    mScrollbar->SetMinimum(0);
    mScrollbar->SetMaximum(0);
    mScrollbar->SetValue(0);
  });
}

// ---- Entries ----

void ControlListBox::AddEntry(const char* text) {
  GuardControl(kModule, "AddEntry", [&] {
    mEntries.push_back(CutText(text, kMaxEntryLength));
    Refresh(true);
  });
}

bool ControlListBox::RemoveEntry(const char* text) {
  return GuardControl(kModule, "RemoveEntry", [&] {
    const auto found = text == nullptr ? mEntries.end() : std::find(mEntries.begin(), mEntries.end(), text);
    if (found == mEntries.end()) return false;
    mEntries.erase(found);
    Refresh(true);
    return true;
  });
}

void ControlListBox::ClearEntries() { mEntries.clear(); }

int ControlListBox::GetEntryCount() { return static_cast<int>(mEntries.size()); }

// ---- Look ----

void ControlListBox::SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetForegroundColor", [&] {
    mForegroundColor = {r, g, b};
    for (int row = 0; row < mVisibleCount; ++row) {
      auto* label = dynamic_cast<ControlLabel*>(GetSubControl(kFirstLabelId + static_cast<std::uint32_t>(row)));
      if (label != nullptr) label->SetForegroundColor(r, g, b);
    }
  });
}

void ControlListBox::SetBorderSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBorderSurface", [&] {
    ControlBasic::SetBorderSurface(surface);
    mScrollbar->SetBorderSurface(surface);
    Refresh(true);
  });
}

void ControlListBox::SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed) {
  GuardControl(kModule, "SetDecrementButtonSurfaces",
               [&] { mScrollbar->SetDecrementButtonSurfaces(pressed, unpressed); });
}

void ControlListBox::SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed) {
  GuardControl(kModule, "SetIncrementButtonSurfaces",
               [&] { mScrollbar->SetIncrementButtonSurfaces(pressed, unpressed); });
}

void ControlListBox::SetScrollbarBackgroundSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetScrollbarBackgroundSurface", [&] { mScrollbar->SetBackgroundSurface(surface); });
}

void ControlListBox::SetScrollbarValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetScrollbarValueBackgroundColor", [&] { mScrollbar->SetValueBackgroundColor(r, g, b); });
}

// ---- Rows ----

void ControlListBox::EventHandler(ControlEvent event) {
  GuardControl(kModule, "EventHandler", [&] {
    if (event.sender == mScrollbar && event.code == ControlScrollbar::kEventValue) Refresh(true);
  });
}

bool ControlListBox::TurnWheel(int /*x*/, int /*y*/, int notches) {
  return GuardControl(kModule, "TurnWheel", [&] {
    mScrollbar->SetValue(mScrollbar->GetValue() + kRowsPerNotch * notches);
    return true;
  });
}

void ControlListBox::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    UpdateScrollRange();
    if (!recursive) {
      ControlBasic::Refresh(false);
      return;
    }
    DeleteEntryLabels();
    ControlBasic::Refresh(true);
    mScrollbar->SetPosition(GetWidth() - ControlScrollbar::kButtonSize, 0, ControlScrollbar::kButtonSize, GetHeight());
    mVisibleCount = CalculateVisibleEntries();
    CreateEntryLabels();
    mSpareLabels.clear();
  });
}

void ControlListBox::UpdateScrollRange() {
  const int maximum = std::max(0, GetEntryCount() - mVisibleCount);
  // Setting it renders the scrollbar, and a see-through scrollbar refreshes this control: only a change ends that.
  if (maximum != mScrollbar->GetMaximum()) mScrollbar->SetMaximum(maximum);
}

int ControlListBox::CalculateVisibleEntries() {
  return GuardControl(kModule, "CalculateVisibleEntries", [&] {
    // A row needs more than its height and two borders below its start.
    const int border = GetBorderWidth();
    const int room = GetHeight() - 2 * border - kRowHeight - border;
    return room <= 0 ? 0 : (room + kRowHeight - 1) / kRowHeight;
  });
}

void ControlListBox::CreateEntryLabels() {
  GuardControl(kModule, "CreateEntryLabels", [&] {
    const int border = GetBorderWidth();
    const int width = GetWidth() - mScrollbar->GetWidth() - border;
    for (int row = 0; row < mVisibleCount; ++row) {
      const std::size_t index = static_cast<std::size_t>(mScrollbar->GetValue()) + static_cast<std::size_t>(row);
      const std::string text = index < mEntries.size() ? mEntries[index] : "";
      AddLabel(row, border, border + kRowHeight * row, width, text, mForegroundColor);
    }
  });
}

void ControlListBox::DeleteEntryLabels() {
  GuardControl(kModule, "DeleteEntryLabels", [&] {
    RemoveLabels(mVisibleCount);
    mVisibleCount = 0;
  });
}

void ControlListBox::AddLabel(int index, int x, int y, int width, const std::string& text, Rgb color) {
  std::unique_ptr<ControlLabel> label = MakeLabel(index);
  label->SetRefreshEnabled(false);
  label->SetPosition(x, y, width, kRowHeight);
  label->SetText(text.c_str());
  label->SetBackgroundColor(GetBackgroundColor());
  // The last setter renders once for all.
  label->SetRefreshEnabled(true);
  label->SetForegroundColor(color);
  AddSubControl(label.release());
}

std::unique_ptr<ControlLabel> ControlListBox::MakeLabel(int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place < mSpareLabels.size() && mSpareLabels[place] != nullptr) {
    return std::unique_ptr<ControlLabel>(static_cast<ControlLabel*>(mSpareLabels[place].release()));
  }
  return std::make_unique<ControlLabel>(kFirstLabelId + static_cast<std::uint32_t>(index), GetBaseSurface(),
                                        static_cast<ControlBasic*>(this), CallbackWrapper);
}

void ControlListBox::RemoveLabels(int count) {
  mSpareLabels.resize(static_cast<std::size_t>(count));
  // From the front on: the last label is found first.
  for (int index = count - 1; index >= 0; --index) {
    mSpareLabels[static_cast<std::size_t>(index)] = TakeSubControl(kFirstLabelId + static_cast<std::uint32_t>(index));
  }
}

}  // namespace tolva
