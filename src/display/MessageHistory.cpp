#include "display/MessageHistory.h"

#include <algorithm>
#include <vector>

#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/MouseWheel.h"
#include "display/BottomStrip.h"
#include "display/Component.h"
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

constexpr std::uint32_t kLastMode = 2;
constexpr int kButtonEdge = 16;
constexpr int kButtonColumn = 18;  // the buttons' and the space around them
constexpr int kRowHeight = 16;
constexpr int kTopLine = 2;
// What a label leaves free left and right of its text.
constexpr int kLabelMargin = 3;

int GetPanelHeight(std::uint32_t mode, int windowHeight) {
  const int heights[] = {18, 66, windowHeight / 2 - BottomStrip::kHeight};
  return heights[mode];
}

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

void MessageHistory::Build(std::uint32_t mode) {
  mMode = std::min(mode, kLastMode);
  const Size size{mWindow.w, GetPanelHeight(mMode, mWindow.h)};
  mPanel = CheckSurface(MakeDisplaySurface(size, mWindow), kModule, kMethod);
  mIsPainted = false;
  PlaceButtons();
  ScrollBy(0);
}

int MessageHistory::GetTop() const { return mWindow.h - BottomStrip::kHeight - GetPanelHeight(mMode, mWindow.h); }

int MessageHistory::GetLineWidth() const { return mSideTile == nullptr ? 0 : mSideTile->w; }

int MessageHistory::GetTextRight() const { return mWindow.w - kButtonColumn - GetLineWidth(); }

int MessageHistory::GetVisibleRows() const { return (GetPanelHeight(mMode, mWindow.h) - kTopLine) / kRowHeight; }

void MessageHistory::PlaceButtons() {
  const int top = GetTop();
  const int bottom = mWindow.h;  // out of sight
  const int places[kLastMode + 1][kButtonCount] = {
      {top + 2, bottom, bottom, bottom},
      {top + 2, top + 50, top + 18, top + 34},
      {top + 2, bottom - 52, top + 18, bottom - 68},
  };
  for (std::size_t index = 0; index < kButtonCount; ++index) {
    mButtons[index]->SetY(static_cast<std::int16_t>(places[mMode][index]));
  }
}

void MessageHistory::HandlePress(const SDL_Event& event) {
  const auto isHit = [&](const auto& button) {
    const int x = event.button.x - button->GetX();
    const int y = event.button.y - button->GetY();
    return x >= 0 && x <= button->GetWidth() && y >= 0 && y <= button->GetHeight();
  };
  const auto hit = std::find_if(mButtons.begin(), mButtons.end(), isHit);
  if (hit == mButtons.end()) return;
  (*hit)->HandleEvent(event);
  switch (hit - mButtons.begin()) {
    case kEnlarge:
      if (mMode < kLastMode) Build(mMode + 1);
      return;
    case kShrink:
      if (mMode > 0) Build(mMode - 1);
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
  const int headingWidth = MeasureText(font, heading.c_str(), kModule, kMethod).width + 2 * kLabelMargin;
  const int room = GetTextRight() - GetLineWidth() - headingWidth - 2 * kLabelMargin;
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
  const int most = std::max(0, GetRowCount() - GetVisibleRows());
  mScrolledBack = std::clamp(mScrolledBack + rows, 0, most);
  mIsPainted = false;
}

bool MessageHistory::TurnWheel(int x, int y, int notches) {
  const int fromTop = y - GetTop();
  if (x < 0 || x >= mWindow.w || fromTop < 0 || fromTop >= GetPanelHeight(mMode, mWindow.h)) return false;
  if (mMode > 0) {
    ScrollBy(-kRowsPerNotch * notches);
  } else {
    ScrollToMessage(notches < 0);
  }
  return true;
}

// In the one row, scrolling by rows would change nothing until the end of the message is reached.
void MessageHistory::ScrollToMessage(bool isOlder) {
  const int shown = GetLastShown();
  if (shown < 0) return;
  const int target = isOlder ? FindFirstRow(shown) - 1 : FindLastRow(FindLastRow(shown) + 1);
  ScrollBy(shown - target);
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
  const int last = mMode > 0 || mRows.empty() ? GetLastShown() : FindFirstRow(GetLastShown());
  for (int line = 0; line < visible && line <= last; ++line) {
    const Row& row = mRows[static_cast<std::size_t>(last - line)];
    // Who reads on the topmost line shall not have to scroll to learn who speaks.
    PaintRow(row, panel.h - kRowHeight * (line + 1), row.isFirst || line == visible - 1);
  }
  mIsPainted = true;
}

void MessageHistory::PaintRow(const Row& row, int y, bool hasHeading) {
  const int left = GetLineWidth();
  const int textX = left + row.headingWidth;
  if (hasHeading) PaintText(row.heading, left, y, row.headingWidth, kNameColor);
  PaintText(row.text, textX, y, GetTextRight() - textX, kWhite);
}

void MessageHistory::PaintText(const std::string& text, int x, int y, int width, Rgb color) {
  if (text.empty()) return;
  ControlLabel label(0, mPanel.get(), nullptr, nullptr);
  label.SetRefreshEnabled(false);
  label.SetPosition(x, y, width, kRowHeight);
  label.SetText(text.c_str());
  label.SetBackgroundColor(0, 0, 0);
  // The last setter renders it, once.
  label.SetRefreshEnabled(true);
  label.SetForegroundColor(color.r, color.g, color.b);
  label.Blit();
}

}  // namespace tolva
