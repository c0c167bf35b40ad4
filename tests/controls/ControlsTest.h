#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/ControlTextBasic.h"
#include "foundation/Error.h"
#include "support/VideoTest.h"

namespace tolva::test {

// The mouse and the clock that the controls see instead of SDL's.
struct Inputs {
  int dx = 0;
  int dy = 0;
  Uint8 buttons = 0;
  Uint32 ticks = 0;
};
extern Inputs gInputs;

// Sender and code of each report, in order.
using Reports = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

inline void Record(ControlEvent event) {
  static_cast<Reports*>(event.receiver)->push_back({event.sender->GetId(), event.code});
}

SDL_Event Mouse(Uint8 type, int x = 0, int y = 0);
SDL_Event Key(SDLKey symbol, Uint16 unicode = 0, SDLMod modifiers = KMOD_NONE);
// Presses at (x, y) and releases far away from there.
void Click(ControlBasic& root, int x, int y);

// "module method message" of the Error that `body` throws, or "".
template <typename Body>
std::string ErrorOf(Body&& body) {
  try {
    body();
    return "";
  } catch (Error* thrown) {
    const std::unique_ptr<Error> error(thrown);
    return std::string(error->GetModule()) + " " + error->GetMethod() + " " + error->GetMessage();
  }
}

class ControlsTest : public VideoTest {
 protected:
  ControlsTest() { gInputs = {}; }

  Reports mReports;
};

// With a font.
class TextTest : public ControlsTest {
 protected:
  explicit TextTest(int pointSize = 12) {
    ControlTextBasic::LoadFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", pointSize);
  }
  static int WidthOf(const std::string& text);

  ControlTextBasic mFontKeeper{0, nullptr, nullptr, nullptr};
};

}  // namespace tolva::test
