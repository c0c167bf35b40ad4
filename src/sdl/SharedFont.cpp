#include "sdl/SharedFont.h"

#include "sdl/SdlError.h"

namespace tolva {

SharedFont::User::User(SharedFont& font, const char* module, const char* method) : mFont(font) {
  if (mFont.mUserCount == 0) CheckSdl(TTF_Init() == 0, module, method);
  ++mFont.mUserCount;
}

SharedFont::User::~User() {
  if (--mFont.mUserCount > 0) return;
  mFont.Close();
  TTF_Quit();
}

bool SharedFont::Open(const char* fileName, int pointSize) {
  Close();
  mFont.reset(TTF_OpenFont(fileName, pointSize));
  return mFont != nullptr;
}

void SharedFont::Close() {
  mTexts.Clear();
  mFont.reset();
}

}  // namespace tolva
