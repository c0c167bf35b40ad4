#pragma once

#include <SDL_ttf.h>

#include "controls/ControlBasic.h"
#include "sdl/SharedFont.h"

namespace tolva {

// A control with a text color and a text style. All text controls share one font. It stays open, and the font library
// runs, while there is a text control.
class ControlTextBasic : public ControlBasic {
 public:
  ControlTextBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  // Replaces the shared font and returns it. Needs a live text control. When it throws, there is no font: labels show
  // nothing, text boxes still edit.
  static TTF_Font* LoadFont(const char* fileName, int pointSize);
  // Null without a font; the toolkit owns it.
  static TTF_Font* GetFont();

  void SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void SetForegroundColor(Rgb color) { SetForegroundColor(color.r, color.g, color.b); }
  Rgb GetForegroundColor() const { return mForegroundColor; }
  void SetUnderline(bool underline);

  void Refresh(bool recursive) override;

 protected:
  // The texts that were rendered in the shared font.
  static RenderedTexts& GetTexts();

 private:
  SharedFont::User mFontUser;
  Rgb mForegroundColor;
  int mStyle = TTF_STYLE_NORMAL;
};

}  // namespace tolva
