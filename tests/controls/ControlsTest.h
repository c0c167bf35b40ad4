#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/ControlTextBasic.h"
#include "support/VideoTest.h"

namespace tolva::test {

inline SDL_Event Mouse(Uint8 type, int x, int y, int button = SDL_BUTTON_LEFT) {
  SDL_Event event{};
  event.button.type = type;
  event.button.x = static_cast<Uint16>(x);
  event.button.y = static_cast<Uint16>(y);
  event.button.button = static_cast<Uint8>(button);
  return event;
}

// Presses at (x, y) and releases far away from there.
inline void Click(ControlBasic& root, int x, int y, int button = SDL_BUTTON_LEFT) {
  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONDOWN, x, y, button));
  root.HandleSdlEvent(Mouse(SDL_MOUSEBUTTONUP, 799, 599, button));
}

class ControlsTest : public VideoTest {
 protected:
  // Sender and code of each report, in order.
  using Reports = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

  static void Record(ControlEvent event) {
    static_cast<Reports*>(event.receiver)->push_back({event.sender->GetId(), event.code});
  }

  Reports mReports;
};

class TextTest : public ControlsTest {
 protected:
  TextTest() { ControlTextBasic::LoadFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 12); }
  static int WidthOf(const std::string& text) {
    int width = 0;
    TTF_SizeText(ControlTextBasic::GetFont(), text.c_str(), &width, nullptr);
    return width;
  }

  ControlTextBasic mFontKeeper{0, nullptr, nullptr, nullptr};
};

}  // namespace tolva::test
