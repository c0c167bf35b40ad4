#include "controls/ControlTextBasic.h"

#include "foundation/Guard.h"
#include "sdl/SdlCalls.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlTextBasic";

// Plain, so that nothing closes the font behind the library's back when the process ends with controls alive.
TTF_Font* gFont = nullptr;
int gLiveControls = 0;

void CloseFont() {
  if (gFont != nullptr) TTF_CloseFont(gFont);
  gFont = nullptr;
}

}  // namespace

ControlTextBasic::FontUse::FontUse() {
  if (gLiveControls == 0) CheckSdl(TTF_Init() == 0, kModule, "ControlTextBasic");
  ++gLiveControls;
}

ControlTextBasic::FontUse::~FontUse() {
  if (--gLiveControls > 0) return;
  CloseFont();
  TTF_Quit();
}

ControlTextBasic::ControlTextBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context,
                                   ControlCallback callback)
    : ControlBasic(id, parentSurface, context, callback) {
  GuardControl(kModule, "ControlTextBasic", [&] { SetForegroundColor(0, 0, 0); });
}

TTF_Font* ControlTextBasic::LoadFont(const char* fileName, int pointSize) {
  return GuardControl(kModule, "LoadFont", [&] {
    CloseFont();
    gFont = TTF_OpenFont(fileName, pointSize);
    CheckSdl(gFont != nullptr, kModule, "LoadFont");
    return gFont;
  });
}

TTF_Font* ControlTextBasic::GetFont() { return gFont; }

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
    // Last, because other text controls refreshed on the way have set the shared font to their own style.
    if (gFont != nullptr) TTF_SetFontStyle(gFont, mStyle);
  });
}

}  // namespace tolva
