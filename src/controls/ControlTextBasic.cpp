#include "controls/ControlTextBasic.h"

#include "foundation/Guard.h"
#include "sdl/SdlError.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlTextBasic";

SharedFont& GetFontKeeper() {
  static SharedFont& keeper = *new SharedFont;
  return keeper;
}

}  // namespace

ControlTextBasic::ControlTextBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context,
                                   ControlCallback callback)
    : ControlBasic(id, parentSurface, context, callback), mFontUser(GetFontKeeper(), kModule, "ControlTextBasic") {
  GuardControl(kModule, "ControlTextBasic", [&] { SetForegroundColor(kBlack); });
}

TTF_Font* ControlTextBasic::LoadFont(const char* fileName, int pointSize) {
  return GuardControl(kModule, "LoadFont", [&] {
    CheckSdl(GetFontKeeper().Open(fileName, pointSize), kModule, "LoadFont");
    return GetFont();
  });
}

TTF_Font* ControlTextBasic::GetFont() { return GetFontKeeper().Get(); }

RenderedTexts& ControlTextBasic::GetTexts() { return GetFontKeeper().GetTexts(); }

void ControlTextBasic::SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetForegroundColor", [&] {
    mForegroundColor = {r, g, b};
    Refresh(true);
  });
}

void ControlTextBasic::SetUnderline(bool underline) {
  GuardControl(kModule, "SetUnderline", [&] {
    mStyle = underline ? TTF_STYLE_UNDERLINE : TTF_STYLE_NORMAL;
    Refresh(true);
  });
}

void ControlTextBasic::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    ControlBasic::Refresh(recursive);
    // Last: sub-controls and the parent, if they were refreshed, have set their own style.
    if (TTF_Font* font = GetFont()) TTF_SetFontStyle(font, mStyle);
  });
}

}  // namespace tolva
