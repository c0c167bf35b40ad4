#include <algorithm>
#include <random>

#include "display/DisplayFixture.h"
#include "display/GameDisplayRect.h"
#include "foundation/InfoHandler.h"
#include "media/GameGraphics.h"
#include "plain/Ground.h"
#include "support/Golden.h"
#include "support/VideoTest.h"
#include "support/WaitUntil.h"
#include "world/Repository.h"

namespace tolva::test {
namespace {

std::string MakeStripedTile(const Bytes& color, int width = 76, int height = 37) {
  const Bytes palette = {255, 0, 255, color[0], color[1], color[2], 0, 0, color[2]};
  TestPicture tile{static_cast<Uint32>(width), static_cast<Uint32>(height), PngColor::Palette, 8, palette, {0}};
  for (int i = 0; i < width * height; ++i) {
    const int x = i % width, y = i / width;
    tile.samples.push_back(2 * std::abs(y - 18) > std::min(x, 75 - x) ? 0 : 1 + (x + y) / 8 % 2);
  }
  return MakePng(tile);
}

constexpr std::uint32_t kGrass = 0x20, kSand = 0x30, kSea = 0x40, kStub = 0x50, kSheet = 0x60, kNone = 0x70;

struct GameDisplayRectTest : VideoTest {
  GameDisplayRectTest() {
    GameGraphics::ForgetMissing();
    Entries entries = {{kStub, MakeStripedTile({8, 8, 8}, 16, 32)}, {kSheet, MakeStripedTile({8, 8, 8}, 800, 480)}};
    entries[kGrass] = MakeStripedTile({0, 160, 32});
    entries[kSand] = MakeStripedTile({255, 255, 0});
    entries[kSea] = MakeStripedTile({0, 255, 255});
    entries[kSea + 1] = entries[kDefaultGroundId] = MakeStripedTile({0, 128, 128});
    WriteGraphics(entries);
  }
  // Field `k` of an area, counted as its file stores them.
  Field& Lay(int k, std::uint32_t ground, std::uint8_t smoothness, Uint8 r = kMapCenter, Uint8 c = kMapCenter) {
    Field& field = *mRepository.GetMap().GetAreaAt(r, c)->GetField(static_cast<Uint8>(k / kAreaEdge), k % kAreaEdge);
    field.SetGroundId(ground);
    field.SetSmoothness(smoothness);
    return field;
  }
  TempDir mDir;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  Repository mRepository;
  GameGraphics mGraphics{&mArchive};
  GameDisplayRect mRect{&mGraphics, &mRepository, &mLog};
};

TEST_F(GameDisplayRectTest, LaysTheGroundSoftlyTogether) {
  for (int i = 0; i < kAreaFields; ++i) Lay(i, kGrass, 0);
  Lay(59, kSand, 15);
  Lay(107, kSea, 0);  // not smooth: hard edges
  Lay(83, kSea + 1, 15);
  mRect.SetStartField(3, 3, 0, 12);
  for (const auto& [darkness, name] : {std::pair<Uint8, const char*>{128, "ground-at-dusk"}, {0, "ground"}}) {
    mGraphics.SetDarkness(darkness);
    mRect.Update();
    mRect.Blit(mVideo, 20, 10);
    SDL_BlitSurface(mGraphics.GetGraphic(kSand), nullptr, mVideo, nullptr);  // drawn like a thing on the ground
    EXPECT_TRUE(MatchesGolden(name, *mVideo, {20, 0, 200, 110}));
  }
}

// Also of grounds that cover only a part of a tile, or more than it, and let those before them show through.
TEST_F(GameDisplayRectTest, LaysTheSameAsWhenEachTileIsComposed) {
  std::mt19937 random(3);
  for (const int bits : {16, 16, 16, 8, 32}) {
    ASSERT_NE(SDL_SetVideoMode(800, 600, bits, SDL_SWSURFACE), nullptr);
    GameGraphics graphics(&mArchive);
    plain::Ground plain(graphics, mRepository);
    GameDisplayRect rect(&graphics, &mRepository, &mLog);
    rect.SetStartField(kMapCenter, kMapCenter, 0, 12);
    for (const Uint8 darkness : {0, 90}) {
      const std::uint32_t odd[] = {kStub, kSheet, kNone, 0};
      const std::uint32_t usual[] = {kGrass, kSand, kSea, kSea + 1};
      for (int i = 0; i < kMapAreas * kAreaFields; ++i) {
        const std::uint32_t ground = random() % 8 == 0 ? odd[random() % 4] : usual[random() % 4];
        Lay(i % kAreaFields, ground, Uint8(random() % 16), Uint8(i / kAreaFields / kMapEdge),
            Uint8(i / kAreaFields % kMapEdge));
      }
      graphics.SetDarkness(darkness);
      plain.DrawAll();
      rect.Update();
      const SurfacePtr shown(SDL_DisplayFormat(&plain.GetPicture(2, 2)));
      rect.Blit(shown.get(), 0, 0);
      EXPECT_EQ(std::memcmp(shown->pixels, plain.GetPicture(2, 2).pixels, std::size_t(shown->pitch) * 432), 0)
          << bits << " bits";
    }
  }
}

TEST_F(GameDisplayRectTest, KnowsWhatItsPictureComesFrom) {
  const auto drawn = [&] {
    mRect.Blit(mVideo, -100, 0);
    const auto* pixels = static_cast<const char*>(mVideo->pixels);
    std::string picture(pixels, std::size_t{432} * mVideo->pitch);
    mRect.Blit(mVideo, 0, 0);
    return picture.append(pixels, std::size_t{432} * mVideo->pitch);
  };
  for (const auto& [fx, fy] : {std::pair<Uint8, Uint8>{0, 12}, {12, 0}, {23, 23}}) {
    mRect.SetStartField(3, 3, fx, fy);
    mRect.Update();
    std::string before = drawn();
    int stale = 0;
    for (int i = 0; i < kMapAreas; ++i) {
      EXPECT_TRUE(mRect.IsCurrent());
      for (int k = 0; k < kAreaFields; ++k)
        Lay(k, fx == 12 ? kSand : kSea, 15, Uint8(i / kMapEdge), Uint8(i % kMapEdge));
      const bool isCurrent = mRect.IsCurrent();
      mRect.Update();
      EXPECT_TRUE(!isCurrent || drawn() == before) << "area " << i;
      before = drawn();
      stale += isCurrent ? 0 : 1;
    }
    EXPECT_LE(stale, 7) << "of all areas";
  }
  mGraphics.SetDarkness(1);
  EXPECT_FALSE(mRect.IsCurrent());
}

TEST_F(GameDisplayRectTest, BlendsLineByLineAtEveryDepth) {
  const int edges[][4] = {{50, 6, 1, 158},
                          {50, 30, -1, 127},
                          {25, 30, -1, 127},
                          {25, 6, 1, 158}};  // x, first y, inwards, the tile's own share
  for (int i = 0; i < kAreaFields; ++i) Lay(i, kSea, 5);
  const Field& field = Lay(125, kSand, 4);
  for (const int bits : {8, 16, 24, 32}) {
    ASSERT_NE(SDL_SetVideoMode(800, 600, bits, SDL_SWSURFACE), nullptr);
    GameGraphics graphics(&mArchive);
    const SurfacePtr tile(SDL_DisplayFormat(graphics.GetGraphic(kSand)));
    GameDisplayRect(&graphics, &mRepository, &mLog).SmoothTrans(field, tile.get());
    for (int i = 0; i < 20; ++i) {
      const auto& [x, firstY, inwards, first] = edges[i / 5];
      const int y = firstY + inwards * (i % 5), own = i % 5 == 4 ? 256 : first + 31 * (i % 5);
      const GoldenPixel sand(*graphics.GetGraphic(kSand), x, y), sea(*graphics.GetGraphic(kSea), x, y);
      const auto mix = [&](int a, int b) { return static_cast<Uint8>((a * own + b * (256 - own)) / 256); };
      const Uint32 mixed = SDL_MapRGB(tile->format, mix(sand.r, sea.r), mix(sand.g, sea.g), mix(sand.b, sea.b));
      EXPECT_EQ(GoldenPixel(*tile, x, y).value, mixed) << bits << " bits at " << x << ", " << y;
    }
  }
}

TEST_F(GameDisplayRectTest, DrawsWhatItCanOfAnyGroundAndOfTheMapsEnd) {
  const std::uint32_t grounds[] = {0, kStub, kGrass, kSheet, kNone, kSand, 0xFFFFFFFF};
  for (int i = 0; i < kAreaFields; ++i) Lay(i, grounds[i % 7], 15, 0, 6);
  const struct {
    const char* what;
    Uint8 r, c, fx;
    bool isOnMap;
  } starts[] = {{"no such row of areas", 7, 0, 0, false},
                {"no such column of areas", 0, 7, 0, false},
                {"no such field", 0, 6, kAreaEdge, false},
                {"a corner of the map", 0, 6, 0, true}};
  for (const auto& start : starts) {
    mRect.Update();
    mRect.SetStartField(start.r, start.c, start.fx, 23);
    mRect.Update();
    mRect.Blit(mVideo, 0, 0);
    EXPECT_EQ(PixelAt(mVideo, 20, 220) != 0, start.isOnMap) << start.what;
    EXPECT_EQ(PixelAt(mVideo, 700, 20), 0) << start.what << ": this is beyond the map";
  }
  EXPECT_NE(ReadFile("log.clf").find("Startfield not set (GameDisplayRect - RebuildGroundSurface)"), std::string::npos);
  EXPECT_NE(ReadFile("log.clf").find("Startfield is NULL (GameDisplayRect - RebuildGroundSurface)"), std::string::npos);
}

TEST_F(GameDisplayRectTest, LooksOnceForEachUnknownPictureAndNotForTooMany) {
  for (int i = 0; i < kAreaFields; ++i) Lay(i, i % 2 == 0 ? kNone : kSand, 15);
  mRect.SetStartField(kMapCenter, kMapCenter, 0, 12);
  mRect.Update();
  WriteFile("log.clf", "");
  for (int i = 0; i < 5; ++i) mRect.Update();
  EXPECT_EQ(ReadFile("log.clf"), "") << "each unknown id is looked for once";
  GameGraphics next(&mArchive);
  EXPECT_EQ(next.FindGraphic(kNone), nullptr);
  EXPECT_EQ(ReadFile("log.clf"), "") << "also on the next visit";
  for (Uint32 id = 1'000'000; id < 1'070'000; ++id) next.FindGraphic(id);
  const std::string tile = MakeStripedTile({8, 8, 8});
  WriteGraphics({{kNone, tile}, {kSand, tile}, {kSea, tile}});
  EXPECT_EQ(next.FindGraphic(kNone), nullptr);
  EXPECT_EQ(next.FindGraphic(kSea), nullptr) << "after too many unknown ids";
  EXPECT_NE(next.FindGraphic(kSand), nullptr) << "it was there before";
  EXPECT_NE(next.GetGraphic(kNone), nullptr) << "the store itself always looks";
  EXPECT_NE(mGraphics.FindGraphic(kSand), nullptr) << "what has been loaded stays";
  EXPECT_LE(std::ranges::count(ReadFile("log.clf"), '\n'), 10'001);
}

}  // namespace
}  // namespace tolva::test
