#include "sdl/Copy.h"
#include "sdl/Surface.h"
#include "sdl/Tile.h"
#include "support/VideoTest.h"

namespace tolva::test {
namespace {

constexpr int kEdge = 6;
constexpr Uint16 kUntouched = 0;

class DrawingTest : public VideoTest {
 protected:
  DrawingTest() { SDL_FillRect(mTarget.get(), nullptr, kUntouched); }

  // What the target holds after `expected(x, y)` has been drawn; kUntouched where nothing was.
  template <typename Expected>
  void ExpectPixels(Expected&& expected) {
    for (int y = 0; y < kEdge; ++y) {
      for (int x = 0; x < kEdge; ++x) ASSERT_EQ(PixelAt(mTarget.get(), x, y), expected(x, y)) << x << ", " << y;
    }
  }
  static Uint16 SourcePixel(int x, int y) { return static_cast<Uint16>(100 + 16 * y + x); }

  SurfacePtr mSource = MakePicture(kEdge, kEdge, SourcePixel);
  SurfacePtr mTarget = MakePicture(kEdge, kEdge, [](int, int) { return kUntouched; });
};

TEST_F(DrawingTest, ACopyIsClippedToBothSurfaces) {
  const struct {
    const char* name;
    Rect part;
    int x, y;
  } cases[] = {{"a part from inside", {1, 2, 3, 2}, 2, 1},
               {"over the left and upper edge", {1, 1, 4, 4}, -2, -3},
               {"over the right and lower edge", {1, 1, 4, 4}, 4, 3},
               {"a part larger than both", {-9, -8, 30, 30}, -10, -8},
               {"a part that starts outside the source", {-2, -1, 4, 4}, 1, 1},
               {"beside the target", {0, 0, 6, 6}, 6, 0},
               {"a negative size", {2, 2, -3, -3}, 4, 4},
               {"beyond 16 bits", {0, 0, 6, 6}, 70000, -70000}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    SDL_FillRect(mTarget.get(), nullptr, kUntouched);
    EXPECT_TRUE(CopyPart(mSource.get(), each.part, mTarget.get(), each.x, each.y));
    ExpectPixels([&](int x, int y) {
      const int fromX = x - each.x + each.part.x;
      const int fromY = y - each.y + each.part.y;
      const bool isCopied = each.part.Contains(fromX, fromY) && GetBounds(*mSource).Contains(fromX, fromY);
      return isCopied ? SourcePixel(fromX, fromY) : kUntouched;
    });
  }
}

TEST_F(DrawingTest, TilesCoverAnAreaAndNoMore) {
  EXPECT_TRUE(TilePart(mSource.get(), {1, 2, 2, 3}, *mTarget, {1, -1, 3, 5}));
  ExpectPixels([](int x, int y) {
    return x >= 1 && x < 4 && y < 4 ? SourcePixel(1 + (x - 1) % 2, 2 + (y + 1) % 3) : kUntouched;
  });
}

TEST_F(DrawingTest, APictureWithoutPixelsCoversNothing) {
  EXPECT_TRUE(TileAcross(nullptr, *mTarget));
  EXPECT_TRUE(TileOver(MakePicture(0, 4, SourcePixel).get(), *mTarget));
  EXPECT_TRUE(TileDown(MakePicture(4, 0, SourcePixel).get(), *mTarget, 1));
  ExpectPixels([](int, int) { return kUntouched; });
}

TEST_F(DrawingTest, AFillIsClippedToTheSurface) {
  EXPECT_TRUE(FillPart(*mTarget, {4, -70000, 70000, 70002}, kWhite));
  ExpectPixels([](int x, int y) { return x >= 4 && y < 2 ? Uint16{0xFFFF} : kUntouched; });
}

}  // namespace
}  // namespace tolva::test
