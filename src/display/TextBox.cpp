#include "display/TextBox.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "archive/ArchiveFormat.h"
#include "foundation/Guard.h"
#include "sdl/Surface.h"
#include "sdl/Text.h"

namespace tolva {
namespace {

constexpr char kModule[] = "TextBox";
constexpr char kFontFile[] = "Data.tmp";
constexpr int kFontSize = 13;

SharedFont& GetFontKeeper() {
  static SharedFont& keeper = *new SharedFont;
  return keeper;
}

}  // namespace

TextBox::TextBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r,
                 std::uint8_t g, std::uint8_t b, const char* text, InfoHandler* infoHandler)
    : Widget(x, y, width, height),
      mFontUser(GetFontKeeper(), kModule, "TextBox"),
      mArchive(std::make_unique<Archive>("Graphics", infoHandler)),
      mColor{r, g, b} {
  Guard(kModule, "TextBox", [&] {
    Initialize();
    SetText(text);
  });
}

void TextBox::Initialize() {
  Guard(kModule, "Initialize", [&] {
    if (GetFont() == nullptr) LoadFont();
  });
}

bool TextBox::LoadFont() {
  return Guard(kModule, "LoadFont", [&] {
    if (!mArchive->Extract(archive_format::kFontId, kFontFile)) return false;
    const bool isOpen = GetFontKeeper().Open(kFontFile, kFontSize);
    std::remove(kFontFile);
    if (isOpen) TTF_SetFontStyle(GetFont(), TTF_STYLE_NORMAL);
    return isOpen;
  });
}

TTF_Font* TextBox::GetFont() { return GetFontKeeper().Get(); }

void TextBox::HandleEvent(SDL_Event /*event*/) {}

void TextBox::CreateSurface() {
  Guard(kModule, "CreateSurface", [&] { Render(GetText()); });
}

void TextBox::SetText(const char* text) {
  Guard(kModule, "SetText", [&] {
    mText.SetText(text, mMaxLength);
    CreateSurface();
  });
}

void TextBox::SetColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  Guard(kModule, "SetColor", [&] {
    mColor = {r, g, b};
    CreateSurface();
  });
}

void TextBox::SetMaxLength(std::uint32_t maxLength) { mMaxLength = std::min(maxLength, kMaxLength); }

void TextBox::Render(const char* text) {
  // The font library renders no empty text: there is no surface then.
  mSurface = RenderText(GetFont(), text, mColor);
  if (mSurface == nullptr) return;
  // In the window's format it is copied in a fraction of the time.
  if (SurfacePtr converted = CopyForDisplay(*mSurface)) mSurface = std::move(converted);
}

}  // namespace tolva
