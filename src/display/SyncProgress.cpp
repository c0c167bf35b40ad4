#include "display/SyncProgress.h"

#include "display/PictureIds.h"
#include "sdl/Copy.h"
#include "sdl/Surface.h"

namespace tolva {

SyncProgress::SyncProgress(Archive& archive)
    : mFrame(archive.LoadImage(kPictureProgressFrame)), mBar(archive.LoadImage(kPictureProgressBar)) {}

void SyncProgress::Set(std::uint16_t value, std::uint16_t maximum) {
  mValue = value;
  mMaximum = maximum;
}

void SyncProgress::Blit(SDL_Surface& window) const {
  Fill(window, kBlack);
  if (mFrame == nullptr) return;
  const int left = window.w / 2 - mFrame->w / 2;
  if (mBar != nullptr) {
    // Each area adds the same whole number of pixels, so the bar grows evenly.
    const int done = static_cast<std::uint16_t>(mFrame->w / mMaximum * mValue);
    CopyPart(mBar.get(), {0, 0, done, mBar->h}, &window, left, mFrame->h / 2 + window.h / 2 - mBar->h);
  }
  CopyWhole(mFrame.get(), &window, left, window.h / 2 - mFrame->h / 2);
}

}  // namespace tolva
