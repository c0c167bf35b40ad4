#include "display/BottomStrip.h"

#include "display/PictureIds.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "sdl/Tile.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";
constexpr char kMethod[] = "InitializeComponents";
constexpr Rgb kRoundTripColor{0, 0, 255};
constexpr int kBarHeight = 30;
constexpr int kStripHeight = BottomStrip::kHeight - kBarHeight;

SurfacePtr MakeFilled(Size size, Rgb color, const SDL_Surface& like) {
  SurfacePtr surface = CheckSurface(MakeDisplaySurface(size, like), kModule, kMethod);
  Fill(*surface, color);
  return surface;
}

SurfacePtr Copy(const SurfacePtr& surface) { return CheckSurface(CopyForDisplay(*surface), kModule, kMethod); }

void Dress(SDL_Surface& target, Archive& archive, PictureId left, PictureId tile, PictureId right) {
  TileAcross(archive.LoadImage(tile).get(), target);
  if (const SurfacePtr end{archive.LoadImage(left)}) CopyWhole(end.get(), &target, 0, 0);
  if (const SurfacePtr end{archive.LoadImage(right)}) CopyWhole(end.get(), &target, target.w - end->w, 0);
}

}  // namespace

BottomStrip::BottomStrip(Archive& archive, SDL_Surface& window)
    : mWindow(window), mBar(MakeFilled({window.w, kBarHeight}, kBlack, window)) {
  Dress(*mBar, archive, kPictureBarLeft, kPictureBarTile, kPictureBarRight);
  mLeft = MakeFilled({window.w / 2, kStripHeight}, kBlack, window);
  mLeftFrame = MakeFilled({window.w / 2, kStripHeight}, kTransparentColor, window);
  Dress(*mLeftFrame, archive, kPictureStripLeft, kPictureStripTile, kPictureStripRight);
  SetColorKey(*mLeftFrame, kTransparentColor);
  mRight = Copy(mLeft);
  mRightFrame = Copy(mLeftFrame);
}

void BottomStrip::ShowRoundTrip(std::uint32_t milliseconds) {
  Fill(*mRight, kBlack);
  FillPart(*mRight, {0, 0, static_cast<std::uint16_t>(milliseconds), kStripHeight}, kRoundTripColor);
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
