#include "display/InputBox.h"

#include <algorithm>
#include <string>

#include "controls/TypedCharacter.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
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

void InputBox::SetPassword(bool password) {
  Guard(kModule, "SetPassword", [&] {
    mPassword = password;
    CreateSurface();
  });
}

// ---- Keys ----

void InputBox::HandleEvent(SDL_Event event) {
  Guard(kModule, "HandleEvent", [&] {
    if (event.type != SDL_KEYDOWN || !IsActive()) return;
    const SDL_keysym& key = event.key.keysym;
    // A password does not show where its words are.
    const auto wordMoves = mPassword ? EditBuffer::WordMoves::Off : EditBuffer::WordMoves::On;
    if (!mText.HandleKey(key, GetMaxLength(), wordMoves) && !IsReturn(key.sym)) return;
    mBlinkTick = GetTicks();
    mCursorVisible = true;
    CreateSurface();
  });
}

// ---- Drawing ----

void InputBox::CreateSurface() {
  Guard(kModule, "CreateSurface", [&] {
    const std::string shown = mPassword ? std::string(mText.GetLength(), '*') : std::string(GetText());
    // The cursor needs a surface, which an empty text does not have.
    Render(shown.empty() ? " " : shown.c_str());
    if (mSurface == nullptr) return;
    const int cursorX = FindCursor(shown.substr(0, mText.GetCursor()));
    if (mCursorVisible) DrawCursor(cursorX);
    ShowCursor(cursorX);
  });
}

int InputBox::FindCursor(const std::string& textBefore) const {
  const int width = MeasureText(GetFont(), textBefore.c_str(), kModule, "CreateSurface").width;
  return mText.GetCursor() > 0 ? width - 1 : width;
}

void InputBox::DrawCursor(int x) {
  CheckSdl(FillPart(*mSurface, {x, 0, 1, mSurface->h}, GetColor()), kModule, "CreateSurface");
}

// Scrolls a text wider than the box only as far as the cursor needs, and no further than to its end.
void InputBox::ShowCursor(int x) {
  const int width = GetPlace().width;
  const int source = std::clamp(GetSourceX(), x - width + 1, x);
  SetSource(std::clamp(source, 0, std::max(0, mSurface->w - width)), 0);
}

void InputBox::Blit(SDL_Surface* target) {
  Guard(kModule, "Blit", [&] {
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
