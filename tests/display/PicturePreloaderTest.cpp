#include "display/GameFixture.h"
#include "display/PicturePreloader.h"

namespace tolva::test {
namespace {

using PicturePreloaderTest = GameFixture;

TEST_F(PicturePreloaderTest, PreparesAllPicturesOfTheMapTheNearestFirst) {
  constexpr std::uint32_t kNone = 0x3000, kFar = kTree, kNear = kGround + 48;
  for (Uint8 i = 0; i < kMapAreas; ++i) {
    for (Field& field : mWorld.map.GetAreaAt(i / kMapEdge, i % kMapEdge)->GetFields()) field.SetGroundId(kGround);
  }
  Archive archive("Graphics", &mWorld.log);
  GameGraphics graphics(&archive);
  PicturePreloader preloader(graphics, mWorld.repository);
  const auto prepareUntil = [&](std::uint32_t id) {
    int calls = 0;
    for (; calls < 200 && !graphics.IsKnown(id); ++calls) preloader.Prepare(1);
    return calls;
  };
  mWorld.map.GetAreaAt(0, 6)->GetFields().back().SetVoluId(kFar);
  mWorld.map.GetAreaAt(0, 6)->GetFields().front().SetVoluId(kNone);
  mWorld.map.GetAreaAt(2, 3)->GetFields().back().SetVoluId(kNear);
  EXPECT_LT(prepareUntil(kNear), 10);
  EXPECT_FALSE(graphics.IsKnown(kFar));
  EXPECT_LT(prepareUntil(kFar), 60);
  EXPECT_LT(prepareUntil(kNone), 3) << "what the archive lacks counts as known";
  // A new version of an area that has been looked at.
  mWorld.map.GetAreaAt(2, 3)->GetFields().front().SetVoluId(kGround + 32);
  mWorld.map.GetAreaAt(2, 3)->SetVersion(9);
  EXPECT_LT(prepareUntil(kGround + 32), 3);

  graphics.SetDarkness(50);
  for (int i = 0; i < 10; ++i) preloader.Prepare(1);
  EXPECT_FALSE(graphics.DarkenNext()) << "all pictures are darkened";
}

}  // namespace
}  // namespace tolva::test
