#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include <SDL_ttf.h>

#include "sdl/Rect.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// A text as the font library renders it.
struct RenderedText {
  Size size;           // of the whole text, in pixels
  SurfacePtr picture;  // null for a text 0 pixels wide; only the start of one wider than SDL's surfaces
};

// The texts that were rendered last in one font, by text, color and style. A list that scrolls by a line shows the same
// texts in other rows: it finds all but one of them here, and copying a picture takes a fraction of the time of
// rendering it. Bounded in number and in bytes, because a server chooses the texts.
class RenderedTexts {
 public:
  // How many texts, and bytes of their pixels, each of the two halves keeps. One text more may go beyond the bytes.
  static constexpr std::size_t kHalfCount = 256;
  static constexpr std::size_t kHalfBytes = 1 << 20;

  // The text, which is Latin-1 and not empty, in the font's present style. Valid until the next call. Throws an Error
  // of `module` and `method` when the font library fails.
  const RenderedText& Get(TTF_Font& font, const char* text, Rgb color, const char* module, const char* method);
  // Forgets all texts. Due when the font is closed.
  void Clear();

 private:
  using Texts = std::unordered_map<std::string, RenderedText>;

  const RenderedText& Keep(Texts::node_type node);

  // A text that is asked for goes into the recent half. When that is full, it becomes the older half, and what was not
  // asked for since the last time is forgotten.
  Texts mRecent;
  Texts mOlder;
  std::size_t mRecentBytes = 0;
  std::string mKey;  // kept for its memory
};

}  // namespace tolva
