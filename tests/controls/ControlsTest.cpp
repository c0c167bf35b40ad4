#include "controls/ControlsTest.h"

namespace tolva::test {

Inputs gInputs;

SDL_Event Mouse(Uint8 type, int x, int y) {
  SDL_Event event{};
  event.type = type;
  if (type == SDL_MOUSEMOTION) {
    event.motion.x = static_cast<Uint16>(x);
    event.motion.y = static_cast<Uint16>(y);
  } else {
    event.button.x = static_cast<Uint16>(x);
    event.button.y = static_cast<Uint16>(y);
  }
  return event;
}

SDL_Event Key(SDLKey symbol, Uint16 unicode, SDLMod modifiers) {
  SDL_Event event{};
  event.type = SDL_KEYDOWN;
  event.key.keysym.sym = symbol;
  event.key.keysym.unicode = unicode;
  event.key.keysym.mod = modifiers;
  return event;
}

void Click(ControlBasic& root, int x, int y) {
  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, x, y));
  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 799, 599));
}

int TextTest::WidthOf(const std::string& text) {
  int width = 0;
  TTF_SizeText(ControlTextBasic::GetFont(), text.c_str(), &width, nullptr);
  return width;
}

}  // namespace tolva::test

// These stand in for SDL's own when the test program is linked: the dummy driver has no mouse, and a test that waited
// for a cursor to blink would only be slow.
extern "C" {
Uint8 SDLCALL SDL_GetRelativeMouseState(int* x, int* y) {
  const tolva::test::Inputs now = tolva::test::gInputs;
  tolva::test::gInputs.dx = tolva::test::gInputs.dy = 0;
  if (x != nullptr) *x = now.dx;
  if (y != nullptr) *y = now.dy;
  return now.buttons;
}

Uint32 SDLCALL SDL_GetTicks(void) { return tolva::test::gInputs.ticks; }
}
