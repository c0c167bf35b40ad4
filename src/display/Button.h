#pragma once

#include <cstdint>
#include <memory>

#include "display/Widget.h"
#include "media/Archive.h"

namespace tolva {

class InfoHandler;

// A picture with two looks, one above the other and each as high as the button: released, and pressed below it.
class Button : public Widget {
 public:
  // Released. `pictureId` is an entry of the archive "Graphics"; without it the button works and shows nothing.
  // `infoHandler` stays the caller's and must outlive the button.
  Button(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height, std::uint32_t pictureId,
         InfoHandler* infoHandler);
  ~Button() override = default;

  void Blit(SDL_Surface* target) override;
  // A mouse button that goes down toggles the look, wherever the pointer is: to be given only clicks on the button.
  void HandleEvent(SDL_Event event) override;

  // Shows the pressed or the released look.
  void SetActive(bool pressed);
  bool IsPressed() const { return mPressed; }

 private:
  const std::unique_ptr<Archive> mArchive;
  bool mPressed = false;
};

}  // namespace tolva
