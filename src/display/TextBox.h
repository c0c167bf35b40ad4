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

// One line of text. All text boxes share one font, which the first of them loads from the archive "Graphics" and which
// stays open while there is a text box. Without a font a text box keeps its text and shows nothing. Texts are Latin-1
// with any byte in them.
class TextBox : public Widget {
 public:
  // In characters. Longer texts are cut.
  static constexpr std::uint32_t kMaxLength = 1023;

  // `text` may be null for none. `infoHandler` stays the caller's and must outlive the text box.
  TextBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r, std::uint8_t g,
          std::uint8_t b, const char* text, InfoHandler* infoHandler);
  ~TextBox() override = default;

  void HandleEvent(SDL_Event event) override;
  // Renders the text.
  virtual void CreateSurface();

  // Cuts to the maximum length. `text` may be null or the box's own.
  void SetText(const char* text);
  const char* GetText() const { return mText.GetText(); }
  void SetColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // Clamped to kMaxLength. Does not cut the present text.
  void SetMaxLength(std::uint32_t maxLength);

  // The size of the rendered text in pixels. An empty text is not rendered and gives 0.
  int GetTextWidth() const { return mSurface == nullptr ? 0 : mSurface->w; }
  int GetTextHeight() const { return mSurface == nullptr ? 0 : mSurface->h; }

  // Replaces the shared font. False, with the font before, when the archive has none; with no font when it is damaged.
  bool LoadFont();

 protected:
  // Shows `text` in place of the box's own.
  void Render(const char* text);
  // The shared font, or null; the text boxes together own it.
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
