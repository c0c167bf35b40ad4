#pragma once

#include <cstdint>
#include <memory>

#include "display/Widget.h"
#include "media/Archive.h"

namespace tolva {

class InfoHandler;

// A button that looks pressed or released. The upper half of its picture is the released look, the lower half the
// pressed one; each is as high as the button.
class Button : public Widget {
 public:
  // Starts released. `pictureId` is an entry of the archive "Graphics"; if it is missing, the button works and shows
  // nothing. `infoHandler` stays the caller's and must outlive the button.
  Button(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint32_t pictureId,
         InfoHandler* infoHandler);
  ~Button() override = default;

  void Blit(SDL_Surface* target) override;
  // Toggles the look when a mouse button goes down, wherever the pointer is: pass only clicks on the button.
  void HandleEvent(SDL_Event event) override;

  // Shows the pressed or the released look.
  void SetActive(bool pressed);
  bool IsPressed() const { return mPressed; }

 private:
  const std::unique_ptr<Archive> mArchive;
  bool mPressed = false;
};

}  // namespace tolva
