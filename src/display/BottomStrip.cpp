#include "display/BottomStrip.h"

#include <algorithm>

#include "display/Component.h"
#include "display/PictureIds.h"
#include "display/Tiles.h"
#include "sdl/Rgb.h"
#include "sdl/SdlCalls.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";
constexpr char kMethod[] = "InitializeComponents";
constexpr int kBarHeight = 30;
constexpr int kStripHeight = BottomStrip::kHeight - kBarHeight;

SurfacePtr MakeFilled(int width, int height, Rgb color, const SDL_Surface& like) {
  SurfacePtr surface(MakeDisplaySurface(width, height, like));
  CheckSdl(surface != nullptr, kModule, kMethod);
  SDL_FillRect(surface.get(), nullptr, SDL_MapRGB(surface->format, color.r, color.g, color.b));
  return surface;
}

SurfacePtr Copy(const SurfacePtr& surface) {
  SurfacePtr copy(SDL_DisplayFormat(surface.get()));
  CheckSdl(copy != nullptr, kModule, kMethod);
  return copy;
}

void Dress(SDL_Surface& target, Archive& archive, PictureId left, PictureId tile, PictureId right) {
  TileAcross(archive.LoadImage(tile).get(), target);
  if (const SurfacePtr end{archive.LoadImage(left)}) CopyWhole(end.get(), &target, 0, 0);
  if (const SurfacePtr end{archive.LoadImage(right)}) CopyWhole(end.get(), &target, target.w - end->w, 0);
}

}  // namespace

BottomStrip::BottomStrip(Archive& archive, SDL_Surface& window)
    : mWindow(window), mBar(MakeFilled(window.w, kBarHeight, kBlack, window)) {
  Dress(*mBar, archive, kPictureBarLeft, kPictureBarTile, kPictureBarRight);
  mLeft = MakeFilled(window.w / 2, kStripHeight, kBlack, window);
  mLeftFrame = MakeFilled(window.w / 2, kStripHeight, kTransparentColor, window);
  Dress(*mLeftFrame, archive, kPictureStripLeft, kPictureStripTile, kPictureStripRight);
  const Rgb key = kTransparentColor;
  SDL_SetColorKey(mLeftFrame.get(), SDL_SRCCOLORKEY, SDL_MapRGB(mLeftFrame->format, key.r, key.g, key.b));
  mRight = Copy(mLeft);
  mRightFrame = Copy(mLeftFrame);
}

void BottomStrip::ShowRoundTrip(std::uint32_t milliseconds) {
  SDL_FillRect(mRight.get(), nullptr, SDL_MapRGB(mRight->format, 0, 0, 255));
  const int end = std::min<int>(static_cast<std::uint16_t>(milliseconds), mRight->w);
  SDL_Rect rest{static_cast<Sint16>(end), 0, static_cast<Uint16>(mRight->w - end), kStripHeight};
  SDL_FillRect(mRight.get(), &rest, SDL_MapRGB(mRight->format, 0, 0, 0));
}

void BottomStrip::BlitBar() { CopyWhole(mBar.get(), &mWindow, 0, mWindow.h - kHeight); }

void BottomStrip::BlitStrips() {
  const int y = mWindow.h - kStripHeight;
  CopyWhole(mLeft.get(), &mWindow, 0, y);
  CopyWhole(mLeftFrame.get(), &mWindow, 0, y);
  CopyWhole(mRight.get(), &mWindow, mWindow.w / 2, y);
  CopyWhole(mRightFrame.get(), &mWindow, mWindow.w / 2, y);
}

}  // namespace tolva
