#pragma once

#include <string>

#include "controls/ControlLabel.h"
#include "controls/EditBuffer.h"

namespace tolva {

// A one-line editor. A text wider than the box scrolls with the blinking cursor. The first text box enables Unicode
// translation and key repeat for the whole program.
class ControlTextBox : public ControlLabel {
 public:
  static constexpr std::uint32_t kEventEnter = 0;
  static constexpr std::uint32_t kEventTab = 1;
  static constexpr std::uint32_t kEventEscape = 2;

  ControlTextBox(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void Blit() override;
  void SetActive(bool active) override;
  void Refresh(bool recursive) override;
  void SdlEventHandler(SDL_Event event) override;

  // What was entered, whatever of it the box shows.
  const char* GetText() const override { return mEntered.GetText(); }
  // The cursor stays, or moves to the new end.
  void SetText(const char* text) override;

  // Whether the box shows an asterisk for each character.
  void SetPassword(bool password);
  // Builds the cursor in the present text color. A later change of that color does not change the cursor.
  void CreateCursorSurface();

 private:
  void HandleKey(const SDL_keysym& key);
  void ScrollToCursor();
  void PaintCursor();
  // The characters from `first` up to `end`, masked in a password.
  std::string GetDisplayed(std::size_t first, std::size_t end) const;
  int MeasureDisplayed(std::size_t first, std::size_t end, const char* method) const;

  EditBuffer mEntered;
  std::size_t mFirstShown = 0;
  bool mPassword = false;
  bool mCursorShown = false;
  SurfacePtr mCursorSurface;
  std::uint32_t mLastBlink;
};

}  // namespace tolva
