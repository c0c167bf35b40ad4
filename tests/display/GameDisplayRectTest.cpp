#include <functional>

#include "DisplayFixture.h"
#include "display/GameDisplayRect.h"
#include "foundation/InfoHandler.h"
#include "media/GameGraphics.h"
#include "support/Golden.h"
#include "support/VideoTest.h"
#include "world/Repository.h"

namespace tolva::test {
namespace {

// A diamond of two colours in stripes, see-through around it.
std::string MakeTile(const Bytes& colors, std::uint32_t width = 76, std::uint32_t height = 37) {
  TestPicture tile{.width = width, .height = height, .colour = PngColour::Palette, .palette = {255, 0, 255}};
  tile.palette.insert(tile.palette.end(), colors.begin(), colors.end());
  tile.seeThrough = {0};
  const auto isInside = [](int x, int y) { return 2 * std::abs(y - 18) <= std::min(x, 75 - x); };
  for (int y = 0; y < static_cast<int>(height); ++y) {
    for (int x = 0; x < static_cast<int>(width); ++x) tile.samples.push_back(isInside(x, y) ? 1 + (x + y) / 8 % 2 : 0);
  }
  return MakePng(tile);
}

constexpr std::uint32_t kGrass = 0x20, kSand = 0x30, kStub = 0x40, kSheet = 0x50;

class GameDisplayRectTest : public VideoTest {
 protected:
  GameDisplayRectTest() {
    const Bytes green = {32, 128, 32, 64, 160, 32};
    WriteGraphics({{kGrass, MakeTile(green)},
                   {kGrass + 1, MakeTile({0, 96, 96, 32, 160, 160})},
                   {kSand, MakeTile({224, 192, 96, 255, 224, 128})},
                   {kStub, MakeTile(green, 16, 32)},
                   {kSheet, MakeTile(green, 800, 480)},
                   {kDefaultGroundId, MakeTile({0, 0, 0, 32, 32, 32})}});
    for (std::uint8_t r = 0; r < kMapEdge; ++r) {
      for (std::uint8_t c = 0; c < kMapEdge; ++c) {
        for (Field& field : mRepository.GetMap().GetAreaAt(r, c)->GetFields()) field.SetGroundId(kGrass);
      }
    }
  }
  Field& At(std::uint8_t fx, std::uint8_t fy) { return *mRepository.GetMap().GetCenterArea()->GetField(fx, fy); }

  TempDir mDir;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  Repository mRepository;
  GameGraphics mGraphics{&mArchive};
  GameDisplayRect mRect{&mGraphics, &mRepository, &mLog};
};

TEST_F(GameDisplayRectTest, LaysTheGroundSoftlyTogether) {
  At(2, 11).SetGroundId(kSand);
  At(2, 11).SetSmoothness(15);
  At(4, 11).SetGroundId(kSand);  // no smoothness: hard edges
  At(2, 9).SetGroundId(kGrass + 1);
  At(2, 9).SetSmoothness(15);  // a variant: hard edges too
  mRect.SetStartField(kMapCenter, kMapCenter, 0, 12);
  for (const auto& [darkness, name] : {std::pair{0, "ground"}, {128, "dusk"}, {0, "ground"}}) {
    mGraphics.SetDarkness(static_cast<std::uint8_t>(darkness));
    mRect.Update();
    mRect.Blit(mVideo, -20, -10);
    EXPECT_TRUE(MatchesGolden(name, *mVideo, {0, 0, 300, 150}));
  }
}

}  // namespace
}  // namespace tolva::test
