#pragma once

#include <cstdint>

#include <SDL.h>

#include "sdl/SurfacePtr.h"

namespace tolva {

// What the game screen draws over the world: a place on the window and a picture of which a part is shown. Without a
// picture it shows nothing. Display thread only.
class Widget {
 public:
  // Pixels from the target's top left corner, and the size of what is shown.
  Widget(std::int16_t x, std::int16_t y, std::uint16_t width, std::uint16_t height);
  virtual ~Widget() = default;

  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  virtual void Blit(SDL_Surface* target);
  virtual void HandleEvent(SDL_Event event);

  void SetX(std::int16_t x) { mX = x; }
  void SetY(std::int16_t y) { mY = y; }
  std::int16_t GetX() const { return mX; }
  std::int16_t GetY() const { return mY; }
  std::uint16_t GetWidth() const { return mWidth; }
  std::uint16_t GetHeight() const { return mHeight; }

  // The top left corner, in the picture, of the part that is shown.
  void SetSource(std::int32_t x, std::int32_t y);
  std::int32_t GetSourceX() const { return mSourceX; }
  // Whether the widget has the keyboard.
  void SetActive(bool active) { mActive = active; }

 protected:
  bool IsActive() const { return mActive; }

  SurfacePtr mSurface;

 private:
  std::int16_t mX;
  std::int16_t mY;
  std::uint16_t mWidth;
  std::uint16_t mHeight;
  std::int32_t mSourceX = 0;
  std::int32_t mSourceY = 0;
  bool mActive = false;
};

}  // namespace tolva
