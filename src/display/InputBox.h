#pragma once

#include <cstdint>
#include <string>

#include "display/TextBox.h"

namespace tolva {

// A text box that the player types into while it is active. A text wider than the box scrolls with the blinking cursor.
// Needs SDL's Unicode translation of keys.
class InputBox : public TextBox {
 public:
  // The cursor starts at 0. `maxLength` limits what is typed and set later, not `text`.
  InputBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r, std::uint8_t g,
           std::uint8_t b, std::uint32_t maxLength, const char* text, InfoHandler* infoHandler);
  ~InputBox() override = default;

  // Call it in every frame: the cursor blinks.
  void Blit(SDL_Surface* target) override;
  // Edits on key presses while the box is active.
  void HandleEvent(SDL_Event event) override;
  void CreateSurface() override;

  // Whether the box shows an asterisk for each character.
  void SetPassword(bool password);

 private:
  int FindCursor(const std::string& textBefore) const;
  void DrawCursor(int x);
  void ShowCursor(int x);

  bool mCursorVisible = false;
  std::uint32_t mBlinkTick;
  bool mPassword = false;
};

}  // namespace tolva
