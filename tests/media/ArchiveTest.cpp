#include <algorithm>
#include <numeric>
#include <optional>

#include <gtest/gtest.h>

#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "media/PictureAhead.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"
#include "support/VideoTest.h"

namespace tolva::test {
namespace {

class ArchiveTest : public VideoTest {
 protected:
  TempDir mDir;
  InfoHandler mInfoHandler;
  Archive mArchive{"Graphics", &mInfoHandler};
};

TEST_F(ArchiveTest, SaysInTheLogWhyAPictureIsMissing) {
  const std::string png = MakePng({});
  const char* const noPicture = "Failed to load picture from archive";
  const struct {
    const char* name;
    std::string message;  // empty: the picture loads
    std::string index;
    std::optional<std::string> data;
  } cases[] = {
      {"a picture", "", MakeIndex({{7, 3, 0}}), "abc" + png + "def"},
      {"another id", "Image id in archive not found", MakeIndex({{1, 0, 0}}), png},
      {"no data file", "Failed to open archive file", MakeIndex({{7, 0, 0}}), std::nullopt},
      {"offset beyond 2^31", "Image id found in index, but not in archive", MakeIndex({{7, 0x80000000, 0}}), png},
      {"offset beyond the file", noPicture, MakeIndex({{7, 0x7FFFFFFF, 0}}), png},
      {"not a PNG file", noPicture, MakeIndex({{7, 0, 0}}), "RIFF" + png},
      {"cut short", noPicture, MakeIndex({{7, 0, 0}}), png.substr(0, png.size() - 1)},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    std::filesystem::remove("Graphics.cca");
    std::filesystem::remove("log.clf");
    WriteFile("Graphics.cci", test.index);
    if (test.data) WriteFile("Graphics.cca", *test.data);
    EXPECT_EQ(mArchive.LoadImage(7) != nullptr, test.message.empty());
    const std::string log = ReadFile("log.clf");
    const std::string line = " 001 " + std::string(22, ' ') + test.message + " (Archive - LoadImage)\n";
    EXPECT_EQ(log.substr(std::min(log.find(" 001 "), log.size())), test.message.empty() ? "" : line);
  }
}

TEST_F(ArchiveTest, KeepsTheSeeThroughColorOfAPicture) {
  const std::string rgb = MakePng({.seeThrough = {0, 255, 0, 0, 0, 255}, .samples = {255, 0, 255, 0, 255, 0}});
  const std::string indexed =
      MakePng({.color = PngColor::Palette, .palette = {255, 0, 255, 0, 255, 0}, .seeThrough = {0}, .samples = {0, 1}});
  for (const std::string& png : {rgb, indexed}) {
    WriteArchive("Graphics", 7, png);
    const SurfacePtr picture = mArchive.LoadImage(7);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->format->BitsPerPixel, mVideo->format->BitsPerPixel);
    EXPECT_TRUE(picture->flags & SDL_SRCCOLORKEY);
    EXPECT_EQ(picture->format->colorkey, ToPixel(mVideo, 255, 0, 255));
    EXPECT_EQ(PixelAt(picture.get(), 0, 0), ToPixel(mVideo, 255, 0, 255));
    EXPECT_EQ(PixelAt(picture.get(), 1, 0), ToPixel(mVideo, 0, 255, 0));
  }
}

TEST_F(ArchiveTest, DecodesTheIconWithoutAVideoMode) {
  WriteArchive("Graphics", 7, MakePng({.width = 32, .height = 32}));
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
  ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
  const SurfacePtr icon = mArchive.DecodeImage(7);
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->w, 32);
  EXPECT_EQ(mArchive.LoadImage(7), nullptr);
}

TEST_F(ArchiveTest, DecodesAheadWhatItWouldLoad) {
  Bytes samples(4 * 3 * 3);
  std::iota(samples.begin(), samples.end(), Uint8{0});
  std::ranges::for_each(samples, [](Uint8& sample) { sample = static_cast<Uint8>(sample * 7); });
  WriteArchive("Graphics", 7, MakePng({.samples = samples}));
  PictureAhead ahead("Graphics", 7);
  const SurfacePtr picture = ahead.Take();
  ASSERT_NE(picture, nullptr);
  const SurfacePtr loaded = mArchive.LoadImage(7);
  for (int at = 0; at < 12; ++at) {
    EXPECT_EQ(PixelAt(picture.get(), at % 4, at / 4), PixelAt(loaded.get(), at % 4, at / 4)) << at;
  }
  EXPECT_EQ(ahead.Take(), nullptr) << "it has been taken";
  EXPECT_EQ(PictureAhead("Graphics", 8).Take(), nullptr) << "there is none";
  for (const TestPicture& left : {TestPicture{.seeThrough = {0, 255, 0, 0, 0, 255}},
                                  TestPicture{.color = PngColor::Palette, .palette = {255, 0, 255}}}) {
    WriteArchive("Graphics", 7, MakePng(left));
    EXPECT_EQ(PictureAhead("Graphics", 7).Take(), nullptr) << "left to the archive";
  }
}

}  // namespace
}  // namespace tolva::test
