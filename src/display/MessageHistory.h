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

// Of those who speak, in the history and over their heads.
constexpr Rgb kNameColor{247, 231, 135};

class InfoHandler;

// The panel of the game screen that shows what was said last, the newest at the bottom, in one of three sizes, with
// four buttons at its right end: they enlarge and shrink it and scroll by a line. Texts are wrapped; time and name
// stand at the topmost visible row of each. The smallest size has one row, with which the last message begins. Stands
// on the bottom strip. Any byte may come in texts. Display thread only.
class MessageHistory {
 public:
  // How many messages are kept.
  static constexpr std::size_t kMaxMessages = 200;

  // All three stay the caller's and must outlive this object. Not to be drawn before the first Build.
  MessageHistory(Archive& archive, SDL_Surface& window, InfoHandler* logger);

  // Shows the panel in size 0 (one line), 1 or 2 (half the window), and puts the buttons where they then belong.
  void Build(std::uint32_t mode);
  std::uint32_t GetMode() const { return mMode; }

  // Who said what, and when. An empty name stands for the client itself. Who has scrolled back keeps reading there.
  void Add(const char* name, const char* text, std::time_t when = std::time(nullptr));

  // The wheel turned by `notches`, positive when down, with the pointer at (x, y). Scrolls by three rows; in the
  // smallest size from message to message. False when the pointer is not over the panel.
  bool TurnWheel(int x, int y, int notches);

  // A mouse button went down: the first button under the pointer, if any, does what it is for and looks pressed.
  void HandlePress(const SDL_Event& event);
  // Every button looks released.
  void ReleaseButtons();

  void Blit();

 private:
  struct Row {
    std::string heading;  // time and name
    int headingWidth;
    std::string text;
    bool isFirst;  // of its message
  };
  enum ButtonIndex : std::size_t { kEnlarge, kShrink, kBack, kForward, kButtonCount };  // in the order of being hit

  void PlaceButtons();
  void ScrollBy(int rows);
  // To the message before, or to the next one.
  void ScrollToMessage(bool isOlder);
  int GetRowCount() const { return static_cast<int>(mRows.size()); }
  // The row at which the panel ends.
  int GetLastShown() const { return GetRowCount() - 1 - mScrolledBack; }
  // Of the message that has this row.
  int FindFirstRow(int row) const;
  int FindLastRow(int row) const;
  void DropOldest();
  void Paint();
  void PaintRow(const Row& row, int y, bool hasHeading);
  void PaintText(const std::string& text, int x, int y, int width, Rgb color);
  int GetTop() const;
  int GetVisibleRows() const;
  // The text stands between the upright line at the left end, this wide, and the one left of the buttons.
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
  int mScrolledBack = 0;  // rows
};

}  // namespace tolva
