#include "controls/ControlChatBox.h"

#include <algorithm>

#include "controls/ControlScrollbar.h"
#include "controls/ControlTextBasic.h"
#include "foundation/FlagScope.h"
#include "foundation/Guard.h"
#include "foundation/Text.h"
#include "sdl/Text.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlChatBox";

// Pixels between name and text, and right of the text.
constexpr int kGap = 10;

// The server speaks in a color of its own.
constexpr char kServerName[] = "Server";
constexpr Rgb kServerColor{163, 158, 133};

std::string InBrackets(const std::string& name) { return "[" + name + "]"; }

template <typename Queue>
void DropOldest(Queue& queue, std::size_t kept) {
  while (queue.size() > kept) queue.pop_front();
}

// Whether the first `count` characters of `text` fit on a line; a single one always does.
bool Fits(const std::string& text, std::size_t count, int width, TTF_Font* font) {
  return count <= 1 || MeasureText(font, text.substr(0, count).c_str(), kModule, "WrapText").width <= width;
}

// How many characters of `text` fit on a line. The search starts at `guess`.
std::size_t CountFitting(const std::string& text, std::size_t guess, int width, TTF_Font* font) {
  const std::size_t limit = std::min(text.size(), ControlChatBox::kMaxLineLength);
  std::size_t count = std::min(guess, limit);
  while (!Fits(text, count, width, font)) --count;
  while (count < limit && Fits(text, count + 1, width, font)) ++count;
  return count;
}

// How many characters fit on a line if all are of average width.
std::size_t GuessFitting(const std::string& text, int width, TTF_Font* font) {
  const int textWidth = MeasureText(font, text.c_str(), kModule, "WrapText").width;
  if (textWidth <= width) return text.size();
  return text.size() * static_cast<std::size_t>(std::max(0, width)) / static_cast<std::size_t>(std::max(1, textWidth));
}

}  // namespace

// ---- Messages ----

void ControlChatBox::AddEntry(const char* text) { AddEntry("", text); }

void ControlChatBox::AddEntry(const char* name, const char* text) {
  GuardControl(kModule, "AddEntry", [&] {
    const bool atEnd = mScrollbar->GetValue() == mScrollbar->GetMaximum();
    mMessages.push_back({CutText(name, kMaxNameLength), CutText(text, kMaxLineLength)});
    StoreLines(mMessages.back());
    DropOldest(mMessages, mMaxMessages);
    Refresh(false);
    // A player who has scrolled back is reading.
    if (atEnd) mScrollbar->SetValue(mScrollbar->GetMaximum());
  });
}

void ControlChatBox::StoreLines(const Message& message) {
  TTF_Font* font = ControlTextBasic::GetFont();
  const int nameWidth = MeasureText(font, InBrackets(message.name).c_str(), kModule, "AddEntry").width + kGap;
  const int width = GetWidth() - (2 * GetBorderWidth() + kGap) - mScrollbar->GetWidth() - nameWidth;
  std::vector<std::string> wrapped;
  WrapText(message.text.c_str(), width, font, wrapped);
  for (std::string& text : wrapped) {
    const bool first = &text == &wrapped.front();
    mLines.push_back({nameWidth, first ? message.name : "", std::move(text), message.name == kServerName});
    DropOldest(mLines, mMaxLines);
  }
}

int ControlChatBox::WrapText(const char* text, int width, TTF_Font* font, std::vector<std::string>& lines) {
  return GuardControl(kModule, "WrapText", [&] {
    const std::size_t before = lines.size();
    std::string rest = text == nullptr ? "" : text;
    // One guess for all lines: measuring the rest for each line would take quadratic time.
    const std::size_t guess = GuessFitting(rest, width, font);
    while (true) {
      const std::size_t fitting = CountFitting(rest, guess, width, font);
      if (fitting == rest.size()) break;
      const std::size_t blank = rest.rfind(' ', fitting);
      const std::size_t end = blank == std::string::npos || blank == 0 ? fitting : blank;
      lines.push_back(rest.substr(0, end));
      rest.erase(0, rest[end] == ' ' ? end + 1 : end);
    }
    if (!rest.empty() || lines.size() == before) lines.push_back(rest);
    return static_cast<int>(lines.size() - before);
  });
}

bool ControlChatBox::RemoveEntry(const char*) { return false; }

void ControlChatBox::ClearEntries() {
  mMessages.clear();
  mLines.clear();
}

int ControlChatBox::GetEntryCount() { return static_cast<int>(mLines.size()); }

// ---- Rows ----

void ControlChatBox::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    // Rendering a see-through row refreshes this control again.
    if (!IsRefreshEnabled() || mRefreshing) return;
    const FlagScope once(mRefreshing, true);
    ControlListBox::Refresh(recursive);
  });
}

void ControlChatBox::EventHandler(ControlEvent event) {
  GuardControl(kModule, "EventHandler", [&] { ControlListBox::EventHandler(event); });
}

void ControlChatBox::CreateEntryLabels() {
  GuardControl(kModule, "CreateEntryLabels", [&] {
    for (int row = 0; row < mVisibleCount; ++row) CreateRow(row);
  });
}

void ControlChatBox::CreateRow(int row) {
  static const Line kNoLine{kGap, "", "", false};
  const std::size_t index = static_cast<std::size_t>(mScrollbar->GetValue()) + static_cast<std::size_t>(row);
  const Line& line = index < mLines.size() ? mLines[index] : kNoLine;
  const int border = GetBorderWidth();
  const int y = border + kRowHeight * row;
  const int textWidth = GetWidth() - 2 * border - line.nameWidth - mScrollbar->GetWidth();
  AddLabel(2 * row, border, y, line.nameWidth, line.name.empty() ? "" : InBrackets(line.name),
           line.isFromServer ? kServerColor : mNameColor);
  AddLabel(2 * row + 1, line.nameWidth + border, y, textWidth, line.text,
           line.isFromServer ? kServerColor : mForegroundColor);
}

void ControlChatBox::DeleteEntryLabels() {
  GuardControl(kModule, "DeleteEntryLabels", [&] {
    RemoveLabels(2 * mVisibleCount);
    mVisibleCount = 0;
  });
}

}  // namespace tolva
