#include "sdl/SharedFont.h"

#include "sdl/SdlError.h"

namespace tolva {

SharedFont::User::User(SharedFont& font, const char* module, const char* method) : mFont(font) {
  if (mFont.mUserCount == 0) CheckSdl(TTF_Init() == 0, module, method);
  ++mFont.mUserCount;
}

SharedFont::User::~User() {
  if (--mFont.mUserCount > 0) return;
  mFont.mFont.reset();
  TTF_Quit();
}

bool SharedFont::Open(const char* fileName, int pointSize) {
  mFont.reset();
  mFont.reset(TTF_OpenFont(fileName, pointSize));
  return mFont != nullptr;
}

}  // namespace tolva
