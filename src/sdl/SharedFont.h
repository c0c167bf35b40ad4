#pragma once

#include <memory>

#include <SDL_ttf.h>

#include "sdl/RenderedTexts.h"

namespace tolva {

// A font that many objects show their texts in. Display thread only. Keep it in static storage and never destroy it:
// the font must not be closed after the font library has ended.
class SharedFont {
 public:
  // Held by each object that shows text. The font library runs and the font stays open while there is a user.
  class User {
   public:
    // Throws an Error of `module` and `method` when the library does not start.
    User(SharedFont& font, const char* module, const char* method);
    ~User();
    User(const User&) = delete;
    User& operator=(const User&) = delete;

   private:
    SharedFont& mFont;
  };

  // Opens a font file in place of the font before. Needs a user. False, with no font left, when it cannot be opened.
  bool Open(const char* fileName, int pointSize);
  // The font, which stays the keeper's, or null.
  TTF_Font* Get() const { return mFont.get(); }
  // The texts that were rendered in the font. All users together have this one store.
  RenderedTexts& GetTexts() { return mTexts; }

 private:
  struct Closer {
    void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
  };

  void Close();

  std::unique_ptr<TTF_Font, Closer> mFont;
  RenderedTexts mTexts;
  int mUserCount = 0;
};

}  // namespace tolva
