#pragma once

#include <SDL_ttf.h>

#include "controls/ControlBasic.h"
#include "sdl/SharedFont.h"

namespace tolva {

// A control with text colour and text style, and the keeper of the one font that all text controls share. The first
// text control starts the font library; the last one to go closes the font and ends the library.
class ControlTextBasic : public ControlBasic {
 public:
  ControlTextBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  // Opens the shared font in place of the one before and returns it. Needs a live text control. When it throws, no font
  // is left: labels then show nothing and text boxes still edit.
  static TTF_Font* LoadFont(const char* fileName, int pointSize);
  // The shared font, or null.
  static TTF_Font* GetFont();

  void SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  Rgb GetForegroundColor() const { return mForegroundColor; }
  void SetUnderline(bool underline);

  void Refresh(bool recursive) override;

 private:
  SharedFont::User mFontUser;
  Rgb mForegroundColor;
  int mStyle = TTF_STYLE_NORMAL;
};

}  // namespace tolva
