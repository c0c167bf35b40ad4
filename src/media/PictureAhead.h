#pragma once

#include <cstdint>
#include <future>
#include <string>
#include <vector>

#include "sdl/SurfacePtr.h"

namespace tolva {

// Decodes one picture on a thread of its own while its owner does something else. The title takes 8 ms to decode, as
// long as a quarter of what precedes the client's first picture, and nothing of that needs it.
class PictureAhead {
 public:
  // Begins with the picture of that id in the archive `baseName`.
  PictureAhead(std::string baseName, std::uint32_t id);

  // Waits for the picture and returns it in the display's format, as Archive::LoadImage would: needs a video mode. Null
  // when there is no such picture, when it is none of 8-bit colors without holes, and after the first call: Archive
  // gives it then, or logs why not.
  SurfacePtr Take();

 private:
  // Red, green and blue in the low bytes, blue lowest: SDL turns this layout into 16 bits four times as fast as bytes
  // in threes.
  struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> colors;
  };

  static Pixels Decode(const std::string& baseName, std::uint32_t id);

  // Its destructor waits for the thread.
  std::future<Pixels> mPixels;
};

}  // namespace tolva
