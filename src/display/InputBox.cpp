#include "display/InputBox.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "controls/TypedCharacter.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "sdl/Text.h"

namespace tolva {
namespace {

constexpr char kModule[] = "InputBox";
constexpr std::uint32_t kBlinkMs = 500;

}  // namespace

InputBox::InputBox(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint8_t r,
                   std::uint8_t g, std::uint8_t b, std::uint32_t maxLength, const char* text, InfoHandler* infoHandler)
    : TextBox(x, y, width, height, r, g, b, text, infoHandler), mBlinkTick(GetTicks()) {
  Guard(kModule, "InputBox", [&] {
    SetMaxLength(maxLength);
    CreateSurface();
  });
}

void InputBox::SetText(const char* text) {
  Guard(kModule, "SetText", [&] {
    StoreText(text);
    mCursor = std::min(mCursor, GetLength());
    CreateSurface();
  });
}

void InputBox::SetPassword(bool password) {
  Guard(kModule, "SetPassword", [&] {
    mPassword = password;
    CreateSurface();
  });
}

std::uint32_t InputBox::GetLength() const { return static_cast<std::uint32_t>(std::strlen(mText)); }

// ---- Keys ----

void InputBox::HandleEvent(SDL_Event event) {
  Guard(kModule, "HandleEvent", [&] {
    if (event.type != SDL_KEYDOWN || !IsActive()) return;
    // Whoever knows the box only as a text box may have given it a shorter text.
    mCursor = std::min(mCursor, GetLength());
    if (!HandleKey(event.key.keysym)) return;
    mBlinkTick = GetTicks();
    mCursorVisible = true;
    CreateSurface();
  });
}

bool InputBox::HandleKey(const SDL_keysym& key) {
  // A password does not show where its words are.
  const bool byWord = (key.mod & KMOD_CTRL) != 0 && !mPassword;
  switch (key.sym) {
    case SDLK_BACKSPACE:
      return mCursor > 0 && Erase(--mCursor);
    case SDLK_DELETE:
      return Erase(mCursor);
    case SDLK_TAB:
    case SDLK_ESCAPE:
      return false;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      return true;
    case SDLK_LEFT:
      return MoveLeft(byWord);
    case SDLK_RIGHT:
      return MoveRight(byWord);
    case SDLK_HOME:
      return MoveTo(0);
    case SDLK_END:
      return MoveTo(GetLength());
    default:
      return Type(GetTypedCharacter(key));
  }
}

bool InputBox::MoveLeft(bool byWord) {
  if (mCursor == 0) return false;
  --mCursor;
  if (!byWord) return true;
  while (mCursor > 0 && mText[mCursor] == ' ') --mCursor;
  while (mCursor > 0 && mText[mCursor - 1] != ' ') --mCursor;
  return true;
}

bool InputBox::MoveRight(bool byWord) {
  const std::uint32_t length = GetLength();
  if (mCursor >= length) return false;
  ++mCursor;
  if (!byWord) return true;
  mCursor = std::min(mCursor + 1, length);
  while (mCursor < length && mText[mCursor] != ' ') ++mCursor;
  while (mCursor < length && mText[mCursor] == ' ') ++mCursor;
  return true;
}

bool InputBox::MoveTo(std::uint32_t position) {
  if (mCursor == position) return false;
  mCursor = position;
  return true;
}

bool InputBox::Erase(std::uint32_t position) {
  const std::uint32_t length = GetLength();
  if (position >= length) return false;
  std::memmove(mText + position, mText + position + 1, length - position);
  return true;
}

bool InputBox::Type(char character) {
  const std::uint32_t length = GetLength();
  if (character == '\0' || length >= GetMaxLength()) return false;
  std::memmove(mText + mCursor + 1, mText + mCursor, length + 1 - mCursor);
  mText[mCursor++] = character;
  return true;
}

// ---- Drawing ----

void InputBox::CreateSurface() {
  Guard(kModule, "CreateSurface", [&] {
    const std::string shown = mPassword ? std::string(GetLength(), '*') : std::string(mText);
    // Even without a text there must be something for the cursor to stand on.
    Render(shown.empty() ? " " : shown.c_str());
    if (mSurface == nullptr) return;
    const int cursorX = FindCursor(shown.substr(0, mCursor));
    if (mCursorVisible) DrawCursor(cursorX);
    ShowCursor(cursorX);
  });
}

int InputBox::FindCursor(const std::string& textBefore) const {
  const int width = MeasureText(GetFont(), textBefore.c_str(), kModule, "CreateSurface").width;
  return mCursor > 0 ? width - 1 : width;
}

void InputBox::DrawCursor(int x) {
  const SurfacePtr cursor = CheckSurface(
      SurfacePtr(SDL_CreateRGBSurface(SDL_SWSURFACE, 1, mSurface->h, 16, 0, 0, 0, 0)), kModule, "CreateSurface");
  Fill(*cursor, GetColor());
  CheckSdl(CopyWhole(cursor.get(), mSurface.get(), x, 0), kModule, "CreateSurface");
}

// A text wider than the box moves only as far as the cursor needs, and leaves no room free behind its end.
void InputBox::ShowCursor(int x) {
  const int width = GetWidth();
  const int source = std::clamp(GetSourceX(), x - width + 1, x);
  SetSource(std::clamp(source, 0, std::max(0, mSurface->w - width)), 0);
}

void InputBox::Blit(SDL_Surface* target) {
  Guard(kModule, "Blit", [&] {
    if (mText[0] == '\0') mCursor = 0;
    const std::uint32_t now = GetTicks();
    if (!IsActive()) {
      mCursorVisible = false;
      CreateSurface();
    } else if (now - mBlinkTick > kBlinkMs) {
      mBlinkTick = now;
      mCursorVisible = !mCursorVisible;
      CreateSurface();
    }
    TextBox::Blit(target);
  });
}

}  // namespace tolva
