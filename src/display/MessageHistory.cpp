#include "display/MessageHistory.h"

#include <algorithm>
#include <vector>

#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/MouseWheel.h"
#include "display/BottomStrip.h"
#include "display/PictureIds.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "sdl/Text.h"
#include "sdl/Tile.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";
constexpr char kMethod[] = "BuildMsgHistory";

// The sizes of the panel.
constexpr std::uint32_t kOneRow = 0;
constexpr std::uint32_t kFourRows = 1;
constexpr std::uint32_t kHalfWindow = 2;

// Pixels.
constexpr int kButtonEdge = 16;
constexpr int kButtonColumn = 18;  // a button and the space around it
constexpr int kRowHeight = 16;
constexpr int kTopLine = 2;
constexpr int kTextMargins = 2 * ControlLabel::kMargin;

std::string MakeHeading(const char* name, std::time_t when) {
  std::tm local{};
  char time[16] = "--:--";
  if (localtime_r(&when, &local) != nullptr) std::strftime(time, sizeof time, "%H:%M", &local);
  return *name == '\0' ? time : std::string(time) + " " + name + ":";
}

}  // namespace

MessageHistory::MessageHistory(Archive& archive, SDL_Surface& window, InfoHandler* logger)
    : mWindow(window),
      mTopTile(archive.LoadImage(kPictureHistoryTop)),
      mSideTile(archive.LoadImage(kPictureHistorySide)) {
  constexpr PictureId kPictures[kButtonCount] = {kPictureHistoryEnlarge, kPictureHistoryShrink, kPictureHistoryBack,
                                                 kPictureHistoryForward};
  for (std::size_t index = 0; index < kButtonCount; ++index) {
    mButtons[index] = std::make_unique<Button>(static_cast<std::int16_t>(window.w - kButtonColumn), 0, kButtonEdge,
                                               kButtonEdge, kPictures[index], logger);
  }
}

// ---- Size and buttons ----

int MessageHistory::GetHeight() const {
  if (mMode == kHalfWindow) return mWindow.h / 2 - BottomStrip::kHeight;
  return kTopLine + kRowHeight * (mMode == kFourRows ? 4 : 1);
}

void MessageHistory::Build(std::uint32_t mode) {
  mMode = std::min(mode, kHalfWindow);
  const Size size{mWindow.w, GetHeight()};
  mPanel = CheckSurface(MakeDisplaySurface(size, mWindow), kModule, kMethod);
  mIsPainted = false;
  PlaceButtons();
  ScrollBy(0);
}

int MessageHistory::GetTop() const { return mWindow.h - BottomStrip::kHeight - GetHeight(); }

int MessageHistory::GetLineWidth() const { return mSideTile == nullptr ? 0 : mSideTile->w; }

int MessageHistory::GetTextRight() const { return mWindow.w - kButtonColumn - GetLineWidth(); }

int MessageHistory::GetVisibleRows() const { return (GetHeight() - kTopLine) / kRowHeight; }

void MessageHistory::PlaceButtons() {
  const int top = GetTop() + kTopLine;
  const int bottom = GetTop() + GetHeight();
  const int outOfSight = mWindow.h;
  const auto place = [this](ButtonIndex index, int y) { mButtons[index]->SetY(static_cast<std::int16_t>(y)); };
  place(kEnlarge, top);
  place(kBack, mMode == kOneRow ? outOfSight : top + kButtonEdge);
  place(kForward, mMode == kOneRow ? outOfSight : bottom - 2 * kButtonEdge);
  place(kShrink, mMode == kOneRow ? outOfSight : bottom - kButtonEdge);
}

void MessageHistory::HandlePress(const SDL_Event& event) {
  const auto isHit = [&](const auto& button) { return button->GetPlace().IsHitAt(event.button.x, event.button.y); };
  const auto hit = std::find_if(mButtons.begin(), mButtons.end(), isHit);
  if (hit == mButtons.end()) return;
  (*hit)->HandleEvent(event);
  switch (hit - mButtons.begin()) {
    case kEnlarge:
      if (mMode < kHalfWindow) Build(mMode + 1);
      return;
    case kShrink:
      if (mMode > kOneRow) Build(mMode - 1);
      return;
    case kBack:
      return ScrollBy(1);
    case kForward:
      return ScrollBy(-1);
  }
}

void MessageHistory::ReleaseButtons() {
  for (const auto& button : mButtons) {
    if (button->IsPressed()) button->SetActive(false);
  }
}

// ---- Messages ----

void MessageHistory::Add(const char* name, const char* text, std::time_t when) {
  TTF_Font* font = ControlTextBasic::GetFont();
  const std::string heading = MakeHeading(name, when);
  const int headingWidth = MeasureText(font, heading.c_str(), kModule, kMethod).width + kTextMargins;
  const int room = GetTextRight() - GetLineWidth() - headingWidth - kTextMargins;
  std::vector<std::string> lines;
  const int count = ControlChatBox::WrapText(text, room, font, lines);
  for (std::string& line : lines) {
    const bool isFirst = &line == lines.data();
    mRows.push_back({heading, headingWidth, std::move(line), isFirst});
  }
  ++mMessageCount;
  DropOldest();
  ScrollBy(mScrolledBack > 0 ? count : 0);
  mIsPainted = false;
}

void MessageHistory::DropOldest() {
  for (; mMessageCount > kMaxMessages; --mMessageCount) {
    do {
      mRows.pop_front();
    } while (!mRows.front().isFirst);
  }
}

void MessageHistory::ScrollBy(int rows) {
  mScrolledBack = std::clamp(mScrolledBack + rows, 0, std::max(0, GetRowCount() - GetVisibleRows()));
  mIsPainted = false;
}

bool MessageHistory::TurnWheel(int x, int y, int notches) {
  if (!Rect{0, GetTop(), mWindow.w, GetHeight()}.Contains(x, y)) return false;
  if (mMode != kOneRow) {
    ScrollBy(-kRowsPerNotch * notches);
  } else if (!mRows.empty()) {
    ScrollByMessage(notches);
  }
  return true;
}

// The one row shows the start of a message, so scrolling by rows would often change nothing.
void MessageHistory::ScrollByMessage(int notches) {
  const int shown = GetLastShown();
  const int wanted = notches < 0 ? FindFirstRow(shown) - 1 : FindLastRow(FindLastRow(shown) + 1);
  ScrollBy(shown - wanted);
}

int MessageHistory::FindFirstRow(int row) const {
  while (row > 0 && !mRows[static_cast<std::size_t>(row)].isFirst) --row;
  return row;
}

int MessageHistory::FindLastRow(int row) const {
  while (row + 1 < GetRowCount() && !mRows[static_cast<std::size_t>(row) + 1].isFirst) ++row;
  return std::min(row, GetRowCount() - 1);
}

// ---- Drawing ----

void MessageHistory::Blit() {
  if (!mIsPainted) Paint();
  CopyWhole(mPanel.get(), &mWindow, 0, GetTop());
  for (const auto& button : mButtons) button->Blit(&mWindow);
}

void MessageHistory::Paint() {
  SDL_Surface& panel = *mPanel;
  Fill(panel, kBlack);
  const int left = GetLineWidth();
  for (const int x : {0, panel.w - left, GetTextRight()}) TileDown(mSideTile.get(), panel, x);
  TileAcross(mTopTile.get(), panel);

  const int visible = GetVisibleRows();
  const int last = mMode != kOneRow || mRows.empty() ? GetLastShown() : FindFirstRow(GetLastShown());
  for (int line = 0; line < visible && line <= last; ++line) {
    const Row& row = mRows[static_cast<std::size_t>(last - line)];
    const int y = panel.h - kRowHeight * (line + 1);
    const int textX = left + row.headingWidth;
    PaintText(row.text, textX, y, GetTextRight() - textX, kWhite);
    // The topmost line also names the speaker of a message whose first row is out of sight.
    if (row.isFirst || line == visible - 1) PaintText(row.heading, left, y, row.headingWidth, kNameColor);
  }
  mIsPainted = true;
}

void MessageHistory::PaintText(const std::string& text, int x, int y, int width, Rgb color) {
  if (text.empty()) return;
  ControlLabel label(0, mPanel.get(), nullptr, nullptr);
  label.SetRefreshEnabled(false);
  label.SetPosition(x, y, width, kRowHeight);
  label.SetText(text.c_str());
  label.SetBackgroundColor(kBlack);
  // The last setter renders once for all.
  label.SetRefreshEnabled(true);
  label.SetForegroundColor(color);
  label.Blit();
}

}  // namespace tolva
