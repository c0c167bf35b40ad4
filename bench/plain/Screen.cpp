#include "plain/Screen.h"

#include "display/PictureIds.h"
#include "plain/Darken.h"
#include "protocol/WorldEdges.h"
#include "sdl/Surface.h"

namespace tolva::plain {

Screen::Screen(SDL_Surface& window, Repository& repository)
    : mWindow(window),
      mOffsets(window, mGraphics, repository, mLog),
      mGround(mGraphics, repository),
      mPainter(window, mGraphics, repository) {
  Load(kPictureCharacters);
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    for (const Field& field : repository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) {
      Load(field.GetGroundId());
      Load(field.GetVoluId());
    }
  }
  mGround.DrawAll();
}

void Screen::Blit() {
  mGround.Blit(mWindow, mWindow.w / 2 + mOffsets.GetBlitOffsetX() - GroundGrid::kWidth / 2,
               mWindow.h / 2 + mOffsets.GetBlitOffsetY() - GroundGrid::kHeight / 2);
  mPainter.BlitObjects();
}

void Screen::CrossBorder(int i, int j) { mGround.DrawEdges(i, j); }

void Screen::Load(std::uint32_t id) {
  if (id == kNoPicture || mPictures.contains(id)) return;
  SDL_Surface& picture = *mGraphics.FindGraphic(id);
  mPictures[id] = {CopyForDisplay(picture), mGraphics.FindMask(id), CopyForDisplay(picture)};
}

void Screen::PrepareDarkness(std::uint8_t darkness) {
  mGraphics.SetDarkness(darkness);
  while (mGraphics.DarkenNext()) {
  }
}

void Screen::SetDarkness(std::uint8_t darkness) {
  for (auto& [id, picture] : mPictures) Darken(*picture.source, *picture.mask, *picture.darkened, darkness);
  mGround.DrawAll();
}

}  // namespace tolva::plain
