#include "controls/ControlTextBox.h"

#include <algorithm>
#include <cstring>

#include "controls/TypedCharacter.h"
#include "foundation/Guard.h"
#include "foundation/Text.h"
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
// A cursor of full line height would touch the frame.
constexpr double kCursorHeight = 0.75;
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
    CopyText(mEntered, static_cast<std::size_t>(GetMaxLength()) + 1, text);
    mCursor = std::min(mCursor, GetLength());
    mFirstShown = std::min(mFirstShown, mCursor);
    ScrollToCursor();
    ControlLabel::SetText(GetDisplayed(mFirstShown, GetLength()).c_str());
  });
}

void ControlTextBox::ScrollToCursor() {
  if (!IsActive()) {
    mFirstShown = 0;
    return;
  }
  const int room = GetWidth() - 2 * kMargin;
  while (mFirstShown < mCursor && MeasureDisplayed(mFirstShown, mCursor, "SetText") > room) ++mFirstShown;
  // After a deletion there is room for characters that had been pushed out.
  while (mFirstShown > 0 && MeasureDisplayed(mFirstShown - 1, GetLength(), "SetText") <= room) --mFirstShown;
}

void ControlTextBox::SetPassword(bool password) {
  GuardControl(kModule, "SetPassword", [&] {
    mPassword = password;
    SetText(mEntered);
  });
}

std::uint32_t ControlTextBox::GetLength() const { return static_cast<std::uint32_t>(std::strlen(mEntered)); }

std::string ControlTextBox::GetDisplayed(std::uint32_t first, std::uint32_t end) const {
  return mPassword ? std::string(end - first, '*') : std::string(mEntered + first, mEntered + end);
}

int ControlTextBox::MeasureDisplayed(std::uint32_t first, std::uint32_t end, const char* method) const {
  return MeasureText(GetFont(), GetDisplayed(first, end).c_str(), kModule, method).width;
}

// ---- Focus and keys ----

void ControlTextBox::SetActive(bool active) {
  GuardControl(kModule, "SetActive", [&] {
    const bool before = IsActive();
    ControlBasic::SetActive(active);
    if (active == before) return;
    if (active) mCursor = GetLength();
    SetText(mEntered);
  });
}

void ControlTextBox::SdlEventHandler(SDL_Event event) {
  GuardControl(kModule, "SdlEventHandler", [&] {
    if (event.type != SDL_KEYDOWN) return;
    // While one types, the cursor stays on.
    mCursorShown = true;
    mLastBlink = GetTicks();
    HandleKey(event.key.keysym);
  });
}

void ControlTextBox::HandleKey(const SDL_keysym& key) {
  switch (key.sym) {
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      return ReportEvent(kEventEnter);
    case SDLK_TAB:
      return ReportEvent(kEventTab);
    case SDLK_ESCAPE:
      return ReportEvent(kEventEscape);
    case SDLK_BACKSPACE:
      if (mCursor == 0) return;
      --mCursor;
      RemoveCharacterAtCursor();
      break;
    case SDLK_DELETE:
      RemoveCharacterAtCursor();
      break;
    case SDLK_LEFT:
      if (mCursor > 0) --mCursor;
      break;
    case SDLK_RIGHT:
      if (mCursor < GetLength()) ++mCursor;
      break;
    case SDLK_HOME:
      mCursor = 0;
      break;
    case SDLK_END:
      mCursor = GetLength();
      break;
    default:
      InsertCharacter(GetTypedCharacter(key));
  }
  SetText(mEntered);
}

void ControlTextBox::InsertCharacter(char character) {
  const std::uint32_t length = GetLength();
  if (character == '\0' || length >= static_cast<std::uint32_t>(GetMaxLength())) return;
  std::memmove(mEntered + mCursor + 1, mEntered + mCursor, length - mCursor + 1);
  mEntered[mCursor++] = character;
}

void ControlTextBox::RemoveCharacterAtCursor() {
  const std::uint32_t length = GetLength();
  if (mCursor < length) std::memmove(mEntered + mCursor, mEntered + mCursor + 1, length - mCursor);
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
  const int width = MeasureDisplayed(mFirstShown, mCursor, "Refresh");
  CheckSdl(CopyWhole(mCursorSurface.get(), GetBaseSurface(), GetTextX() + width - 1, GetTextY() + kCursorTop), kModule,
           "Refresh");
}

void ControlTextBox::CreateCursorSurface() {
  constexpr char kMethod[] = "CreateCursorSurface";
  GuardControl(kModule, kMethod, [&] {
    mCursorSurface.reset();
    if (GetFont() == nullptr || GetBaseSurface() == nullptr) return;
    const int lineHeight = MeasureText(GetFont(), "", kModule, kMethod).height;
    const Size size{1, static_cast<int>(lineHeight * kCursorHeight)};
    SurfacePtr cursor = CheckSurface(MakeDisplaySurface(size, *GetBaseSurface()), kModule, kMethod);
    CheckSdl(Fill(*cursor, GetForegroundColor()), kModule, kMethod);
    mCursorSurface = std::move(cursor);
  });
}

}  // namespace tolva
