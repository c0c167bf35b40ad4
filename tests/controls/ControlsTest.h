#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/ControlTextBasic.h"
#include "sdl/Text.h"
#include "support/Events.h"
#include "support/VideoTest.h"

namespace tolva::test {

// Presses at (x, y) and releases far away from there.
inline void Click(ControlBasic& root, int x, int y, int button = SDL_BUTTON_LEFT) {
  root.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONDOWN, x, y, button));
  root.HandleSdlEvent(MouseEvent(SDL_MOUSEBUTTONUP, 799, 599, button));
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
    return MeasureText(ControlTextBasic::GetFont(), text.c_str(), "TextTest", "WidthOf").width;
  }

  ControlTextBasic mFontUser{0, nullptr, nullptr, nullptr};
};

}  // namespace tolva::test
