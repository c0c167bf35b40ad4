#include "display/PicturePreloader.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <unordered_set>

#include "display/PictureIds.h"
#include "foundation/Guard.h"
#include "media/GameGraphics.h"
#include "world/Repository.h"

namespace tolva {
namespace {

int DistanceToCenter(std::uint8_t place) {
  return std::max(std::abs(place / kMapEdge - kMapCenter), std::abs(place % kMapEdge - kMapCenter));
}

}  // namespace

PicturePreloader::PicturePreloader(GameGraphics& graphics, Repository& repository)
    : mGraphics(graphics), mRepository(repository), mWanted{kPictureCharacters} {
  std::iota(mPlaces.begin(), mPlaces.end(), std::uint8_t{0});
  std::stable_sort(mPlaces.begin(), mPlaces.end(),
                   [](std::uint8_t a, std::uint8_t b) { return DistanceToCenter(a) < DistanceToCenter(b); });
}

void PicturePreloader::Prepare(int count) {
  Guard("ScreenGame", "Blit", [&] {
    if (mWanted.empty()) ExamineNext();
    if (mWanted.empty()) {
      mGraphics.DarkenNext();
      return;
    }
    for (; count > 0 && !mWanted.empty(); --count) {
      const std::uint32_t id = mWanted.extract(mWanted.begin()).value();
      mGraphics.FindSprite(id);
    }
  });
}

void PicturePreloader::ExamineNext() {
  for (const std::uint8_t place : mPlaces) {
    const Area& area = *mRepository.GetMap().GetAreaAt(place / kMapEdge, place % kMapEdge);
    Examined& examined = mExamined[place];
    if (examined.isExamined && examined.groundState == area.GetGroundState() && examined.version == area.GetVersion() &&
        IsSameArea(examined.position, area.GetPosition())) {
      continue;
    }
    examined = {true, area.GetPosition(), area.GetGroundState(), area.GetVersion()};
    return Examine(area);
  }
}

void PicturePreloader::Examine(const Area& area) {
  std::unordered_set<std::uint32_t> ids;
  for (const Field& field : area.GetFields()) {
    ids.insert(field.GetGroundId());
    ids.insert(field.GetVoluId());
  }
  for (const std::uint32_t id : ids) {
    if (id != kNoPicture && !mGraphics.IsKnown(id)) mWanted.insert(id);
  }
}

}  // namespace tolva
