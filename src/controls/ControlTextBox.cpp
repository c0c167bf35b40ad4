#include "controls/ControlTextBox.h"

#include <algorithm>

#include "controls/TypedCharacter.h"
#include "foundation/Bisect.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "sdl/Text.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlTextBox";

constexpr int kKeyRepeatDelayMs = 500;
constexpr int kKeyRepeatIntervalMs = 30;
constexpr std::uint32_t kBlinkMs = 500;
// A cursor as high as the line would touch the frame.
constexpr double kCursorShareOfLine = 0.75;
constexpr int kCursorTop = 3;

}  // namespace

ControlTextBox::ControlTextBox(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : ControlLabel(id, parentSurface, context, callback), mLastBlink(GetTicks()) {
  GuardControl(kModule, "ControlTextBox", [&] {
    SDL_EnableUNICODE(1);
    CheckSdl(SDL_EnableKeyRepeat(kKeyRepeatDelayMs, kKeyRepeatIntervalMs) == 0, kModule, "ControlTextBox");
  });
}

// ---- Text ----

void ControlTextBox::SetText(const char* text) {
  GuardControl(kModule, "SetText", [&] {
    mEntered.SetText(text, static_cast<std::size_t>(GetMaxLength()));
    ScrollToCursor();
    ControlLabel::SetText(GetDisplayed(mFirstShown, mEntered.GetLength()).c_str());
  });
}

void ControlTextBox::ScrollToCursor() {
  if (!IsActive()) {
    mFirstShown = 0;
    return;
  }
  const int room = GetWidth() - 2 * kMargin;
  const std::size_t cursor = mEntered.GetCursor();
  const std::size_t length = mEntered.GetLength();
  const auto fits = [&](std::size_t first, std::size_t end) { return MeasureDisplayed(first, end, "SetText") <= room; };
  // What fits still fits without its first character, because no character moves the next one to the left.
  mFirstShown = Bisect(std::min(mFirstShown, cursor), cursor, [&](std::size_t first) { return fits(first, cursor); });
  // A deletion makes room for characters that had been pushed out.
  if (mFirstShown > 0 && fits(mFirstShown - 1, length)) {
    mFirstShown = Bisect(0, mFirstShown - 1, [&](std::size_t first) { return fits(first, length); });
  }
}

void ControlTextBox::SetPassword(bool password) {
  GuardControl(kModule, "SetPassword", [&] {
    mPassword = password;
    SetText(GetText());
  });
}

std::string ControlTextBox::GetDisplayed(std::size_t first, std::size_t end) const {
  return mPassword ? std::string(end - first, '*') : std::string(GetText() + first, GetText() + end);
}

int ControlTextBox::MeasureDisplayed(std::size_t first, std::size_t end, const char* method) const {
  return MeasureText(GetFont(), GetDisplayed(first, end).c_str(), kModule, method).width;
}

// ---- Focus and keys ----

void ControlTextBox::SetActive(bool active) {
  GuardControl(kModule, "SetActive", [&] {
    const bool before = IsActive();
    ControlBasic::SetActive(active);
    if (active == before) return;
    if (active) mEntered.MoveToEnd();
    SetText(GetText());
  });
}

void ControlTextBox::SdlEventHandler(SDL_Event event) {
  GuardControl(kModule, "SdlEventHandler", [&] {
    if (event.type != SDL_KEYDOWN) return;
    // The cursor does not blink during typing.
    mCursorShown = true;
    mLastBlink = GetTicks();
    HandleKey(event.key.keysym);
  });
}

void ControlTextBox::HandleKey(const SDL_keysym& key) {
  if (IsReturn(key.sym)) return ReportEvent(kEventEnter);
  if (key.sym == SDLK_TAB) return ReportEvent(kEventTab);
  if (key.sym == SDLK_ESCAPE) return ReportEvent(kEventEscape);
  const auto maxLength = static_cast<std::size_t>(GetMaxLength());
  const bool isChanged = mEntered.HandleKey(key, maxLength, EditBuffer::WordMoves::Off);
  // Renders after keys without effect, too, because a hidden cursor shows again. Backspace at the start does nothing.
  if (isChanged || key.sym != SDLK_BACKSPACE) SetText(GetText());
}

// ---- Look ----

void ControlTextBox::Blit() {
  GuardControl(kModule, "Blit", [&] {
    ControlBasic::Blit();
    if (!IsActive()) {
      if (!mCursorShown) return;
      mCursorShown = false;
      Refresh(true);
    } else if (const std::uint32_t now = GetTicks(); now - mLastBlink >= kBlinkMs) {
      mCursorShown = !mCursorShown;
      mLastBlink = now;
      Refresh(true);
    }
  });
}

void ControlTextBox::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!IsRefreshEnabled()) return;
    ControlLabel::Refresh(recursive);
    if (IsActive() && mCursorShown) PaintCursor();
  });
}

void ControlTextBox::PaintCursor() {
  if (mCursorSurface == nullptr) CreateCursorSurface();
  if (mCursorSurface == nullptr || GetBaseSurface() == nullptr) return;
  const int width = MeasureDisplayed(mFirstShown, mEntered.GetCursor(), "Refresh");
  CheckSdl(CopyWhole(mCursorSurface.get(), GetBaseSurface(), GetTextX() + width - 1, GetTextY() + kCursorTop), kModule,
           "Refresh");
}

void ControlTextBox::CreateCursorSurface() {
  constexpr char kMethod[] = "CreateCursorSurface";
  GuardControl(kModule, kMethod, [&] {
    mCursorSurface.reset();
    if (GetFont() == nullptr || GetBaseSurface() == nullptr) return;
    const int lineHeight = MeasureText(GetFont(), "", kModule, kMethod).height;
    const Size size{1, static_cast<int>(lineHeight * kCursorShareOfLine)};
    SurfacePtr cursor = CheckSurface(MakeDisplaySurface(size, *GetBaseSurface()), kModule, kMethod);
    CheckSdl(Fill(*cursor, GetForegroundColor()), kModule, kMethod);
    mCursorSurface = std::move(cursor);
  });
}

}  // namespace tolva
