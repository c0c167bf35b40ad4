#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <deque>
#include <memory>
#include <string>

#include <SDL.h>

#include "display/Button.h"
#include "media/Archive.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The color of speakers' names, in the history and over their heads.
constexpr Rgb kNameColor{247, 231, 135};

class InfoHandler;

// The game screen's panel of messages, the newest at the bottom, above the bottom strip. Texts are wrapped; the first
// visible row of each message starts with its time and speaker. The panel has three sizes, the smallest of which shows
// the first row of the newest message. Four buttons enlarge it, shrink it and scroll by a row. Texts are Latin-1 with
// any byte in them. Display thread only.
class MessageHistory {
 public:
  // Older messages are dropped.
  static constexpr std::size_t kMaxMessages = 200;

  // All three stay the caller's and must outlive this object. Call Build before anything else.
  MessageHistory(Archive& archive, SDL_Surface& window, InfoHandler* logger);

  // Sets the size: 0 (one row), 1 (four rows) or 2 (half the window).
  void Build(std::uint32_t mode);

  // Adds what `name` said; the client itself has an empty name. Keeps a player who has scrolled back at that place.
  void Add(const char* name, const char* text, std::time_t when = std::time(nullptr));

  // Scrolls by `notches` of the wheel, positive is down: by three rows each, in the smallest size to the next message.
  // False when the pointer, at (x, y), is not over the panel.
  bool TurnWheel(int x, int y, int notches);

  // Presses the panel's button under the pointer, if there is one.
  void HandlePress(const SDL_Event& event);
  // Makes all buttons look released.
  void ReleaseButtons();

  void Blit();

 private:
  struct Row {
    std::string heading;  // time and name
    int headingWidth;
    std::string text;
    bool isFirst;  // of its message
  };
  enum ButtonIndex : std::size_t { kEnlarge, kShrink, kBack, kForward, kButtonCount };  // the first one hit counts

  void PlaceButtons();
  void ScrollBy(int rows);
  void ScrollByMessage(int notches);
  int GetRowCount() const { return static_cast<int>(mRows.size()); }
  // The row at the bottom of the panel; -1 without messages.
  int GetLastShown() const { return GetRowCount() - 1 - mScrolledBack; }
  // The first and the last row of the message that this row belongs to.
  int FindFirstRow(int row) const;
  int FindLastRow(int row) const;
  void DropOldest();
  void Paint();
  void PaintText(const std::string& text, int x, int y, int width, Rgb color);
  int GetHeight() const;
  int GetTop() const;
  int GetVisibleRows() const;
  // Text lies between two vertical lines of this width: at the left end, and left of the buttons.
  int GetLineWidth() const;
  int GetTextRight() const;

  SDL_Surface& mWindow;
  const SurfacePtr mTopTile;
  const SurfacePtr mSideTile;
  std::array<std::unique_ptr<Button>, kButtonCount> mButtons;
  std::uint32_t mMode = 0;
  SurfacePtr mPanel;
  bool mIsPainted = false;
  std::deque<Row> mRows;
  std::size_t mMessageCount = 0;
  int mScrolledBack = 0;  // rows below the panel
};

}  // namespace tolva
