#include <cstring>

#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "media/GameGraphics.h"
#include "plain/Darken.h"
#include "sdl/Surface.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"
#include "support/VideoTest.h"

namespace tolva::test {
namespace {

using GameGraphicsTest = VideoTest;

// Of every color that the display can show, and of pictures that no table serves: opaque ones, or other depths.
TEST_F(GameGraphicsTest, DarkensAsAVeilDoes) {
  const TempDir directory;
  std::vector<TestRecord> records;
  std::string data;
  for (const bool isOpaque : {false, true}) {
    TestPicture colors{.width = 256, .height = 256, .color = PngColor::Rgb};
    if (!isOpaque) colors.seeThrough = {0, 255, 0, 0, 0, 255};
    for (int pixel = 0; pixel < 65536; ++pixel) {
      colors.samples.insert(colors.samples.end(),
                            {Uint8(pixel >> 8 | 7), Uint8(pixel >> 3 & 0xFC), Uint8(pixel << 3 | 7)});
    }
    const std::string png = MakePng(colors);
    records.push_back({isOpaque ? 2u : 1u, Uint32(data.size()), Uint32(png.size())});
    data += png;
  }
  WriteFile("Graphics.cci", MakeIndex(records));
  WriteFile("Graphics.cca", data);
  InfoHandler log;
  Archive archive("Graphics", &log);
  for (const int bits : {16, 32}) {
    ASSERT_NE(SDL_SetVideoMode(800, 600, bits, SDL_SWSURFACE), nullptr);
    GameGraphics graphics(&archive);
    for (const std::uint32_t id : {1, 2}) {
      graphics.SetDarkness(0);
      const SurfacePtr source = CopyForDisplay(*graphics.GetGraphic(id));
      const SurfacePtr expected = CopyForDisplay(*source);
      for (const Uint8 darkness : {100, 1, 255, 0, 130}) {
        plain::Darken(*source, *graphics.GetMask(id), *expected, darkness);
        graphics.SetDarkness(darkness);
        const SDL_Surface& darkened = *graphics.GetGraphic(id);
        EXPECT_EQ(std::memcmp(darkened.pixels, expected->pixels, std::size_t(darkened.pitch) * 256), 0)
            << bits << " bits, picture " << id << ", darkness " << int(darkness);
      }
    }
  }
}

}  // namespace
}  // namespace tolva::test
