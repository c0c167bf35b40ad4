#pragma once

#include <cstdint>
#include <string>

#include "display/TextBox.h"

namespace tolva {

// A text box that the player types into while it is active, with a blinking cursor, which stays in sight. Needs SDL's
// unicode translation of keys.
class InputBox : public TextBox {
 public:
  // The cursor starts at 0. `maxLength` bounds what is typed and set later, not `text`.
  InputBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r, std::uint8_t g,
           std::uint8_t b, std::uint32_t maxLength, const char* text, InfoHandler* infoHandler);
  ~InputBox() override = default;

  // Makes the cursor blink, too: to be called every frame.
  void Blit(SDL_Surface* target) override;
  // Keys that go down, while the box is active.
  void HandleEvent(SDL_Event event) override;
  void CreateSurface() override;

  // Shows every character as '*'.
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
