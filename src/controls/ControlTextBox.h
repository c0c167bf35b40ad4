#pragma once

#include <string>

#include "controls/ControlLabel.h"
#include "controls/EditBuffer.h"

namespace tolva {

// A one-line editor: a label that shows the part of the entered text around a blinking cursor. Creating one switches
// SDL's Unicode translation and key repeat on for the whole program.
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

  // The entered text, never the masked or scrolled one.
  const char* GetText() const override { return mEntered.GetText(); }
  // Keeps the cursor where it is, or at the new end.
  void SetText(const char* text) override;

  // Whether the box shows stars instead of the text.
  void SetPassword(bool password);
  // Builds the cursor in the present text colour, which it keeps.
  void CreateCursorSurface();

 private:
  void HandleKey(const SDL_keysym& key);
  void ScrollToCursor();
  void PaintCursor();
  // The characters from `first` up to `end` as the player sees them.
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
