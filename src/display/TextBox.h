#pragma once

#include <cstdint>
#include <memory>

#include <SDL_ttf.h>

#include "controls/EditBuffer.h"
#include "display/Widget.h"
#include "media/Archive.h"
#include "sdl/Rgb.h"
#include "sdl/SharedFont.h"

namespace tolva {

class InfoHandler;

// One line of text in the font that all text boxes share. The first text box loads it from the archive "Graphics", the
// last one to go closes it. Without a font a text box keeps its text and shows
// nothing. Texts are bytes in Latin-1; any byte may come.
class TextBox : public Widget {
 public:
  // What is kept of a text at most.
  static constexpr std::uint32_t kMaxLength = 1023;

  // `text` may be null for none. `infoHandler` stays the caller's and must outlive the text box.
  TextBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r, std::uint8_t g,
          std::uint8_t b, const char* text, InfoHandler* infoHandler);
  ~TextBox() override = default;

  void HandleEvent(SDL_Event event) override;
  // Renders the text anew.
  virtual void CreateSurface();

  // Keeps as many characters as the maximum length allows. `text` may be null or the box's own.
  void SetText(const char* text);
  const char* GetText() const { return mText.GetText(); }
  void SetColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // Counts from the next text on; larger values than kMaxLength count as that.
  void SetMaxLength(std::uint32_t maxLength);

  // The size of the rendered text in pixels; 0 when nothing is rendered, as for an empty text.
  int GetTextWidth() const { return mSurface == nullptr ? 0 : mSurface->w; }
  int GetTextHeight() const { return mSurface == nullptr ? 0 : mSurface->h; }

  // Loads the shared font in place of the one before. False when there is none in the archive.
  bool LoadFont();

 protected:
  // Shows `text` in place of the box's own.
  void Render(const char* text);
  // The shared font, or null.
  static TTF_Font* GetFont();
  Rgb GetColor() const { return mColor; }
  std::uint32_t GetMaxLength() const { return mMaxLength; }

  EditBuffer mText;  // whose cursor only an input box moves

 private:
  void Initialize();

  const SharedFont::User mFontUser;
  const std::unique_ptr<Archive> mArchive;
  std::uint32_t mMaxLength = kMaxLength;
  Rgb mColor{127, 127, 127};
};

}  // namespace tolva
