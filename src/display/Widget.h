#pragma once

#include <cstdint>

#include <SDL.h>

#include "sdl/Rect.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// Something that the game screen draws over the world: a place on the window and a picture, of which it shows a part.
// Without a picture it shows nothing. Display thread only.
class Widget {
 public:
  // Where and how large the widget is on the target, in pixels.
  Widget(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height);
  virtual ~Widget() = default;

  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  virtual void Blit(SDL_Surface* target);
  virtual void HandleEvent(SDL_Event event);

  void SetX(std::int16_t x) { mPlace.x = x; }
  void SetY(std::int16_t y) { mPlace.y = y; }
  const Rect& GetPlace() const { return mPlace; }

  // Where in the picture the shown part starts; it is as large as the widget.
  void SetSource(std::int32_t x, std::int32_t y);
  std::int32_t GetSourceX() const { return mSourceX; }
  // Whether the widget has the keyboard.
  void SetActive(bool active) { mActive = active; }

 protected:
  bool IsActive() const { return mActive; }

  SurfacePtr mSurface;  // the picture

 private:
  Rect mPlace;
  std::int32_t mSourceX = 0;
  std::int32_t mSourceY = 0;
  bool mActive = false;
};

}  // namespace tolva
