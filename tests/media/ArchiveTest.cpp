#include <optional>

#include <gtest/gtest.h>

#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"

namespace tolva::test {
namespace {

class ArchiveTest : public ::testing::Test {
 protected:
  static void StartVideo() {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
    ASSERT_NE(SDL_SetVideoMode(64, 48, 16, SDL_SWSURFACE), nullptr);
  }
  void TearDown() override { SDL_Quit(); }

  TempDir mDir;
  InfoHandler mInfoHandler;
  Archive mArchive{"Graphics", &mInfoHandler};
};

TEST_F(ArchiveTest, SaysInTheLogWhyAPictureIsMissing) {
  StartVideo();
  const std::string png = MakePng({});
  const std::string noId = "Image id in archive not found (Archive - LoadImage)\n";
  const std::string noFile = "Failed to open archive file (Archive - LoadImage)\n";
  const std::string noPlace = "Image id found in index, but not in archive (Archive - LoadImage)\n";
  const std::string noPicture = "Failed to load picture from archive (Archive - LoadImage)\n";
  const struct {
    const char* name;
    std::string message;  // empty: the picture loads
    std::string index;
    std::optional<std::string> data;
  } cases[] = {
      {"a picture", "", MakeIndex({{7, 3, 0}}), "abc" + png + "def"},
      {"another id", noId, MakeIndex({{1, 0, 0}}), png},
      {"no data file", noFile, MakeIndex({{7, 0, 0}}), std::nullopt},
      {"offset beyond 2^31", noPlace, MakeIndex({{7, 0x80000000, 0}}), png},
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
    const std::string line = test.message.empty() ? "" : " 001 " + std::string(22, ' ') + test.message;
    EXPECT_EQ(log.substr(std::min(log.find(" 001 "), log.size())), line);
  }
}

TEST_F(ArchiveTest, KeepsTheSeeThroughColorOfAPicture) {
  StartVideo();
  const std::string rgb = MakePng({.seeThrough = {0, 255, 0, 0, 0, 255}, .samples = {255, 0, 255, 0, 255, 0}});
  const std::string indexed =
      MakePng({.color = PngColor::Palette, .palette = {255, 0, 255, 0, 255, 0}, .seeThrough = {0}, .samples = {0, 1}});
  for (const std::string& png : {rgb, indexed}) {
    WriteArchive("Graphics", 7, png);
    const SurfacePtr picture = mArchive.LoadImage(7);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->format->BitsPerPixel, SDL_GetVideoSurface()->format->BitsPerPixel);
    EXPECT_TRUE(picture->flags & SDL_SRCCOLORKEY);
    EXPECT_EQ(picture->format->colorkey, SDL_MapRGB(picture->format, 255, 0, 255));
    const auto* pixels = static_cast<const std::uint16_t*>(picture->pixels);
    EXPECT_EQ(pixels[0], picture->format->colorkey);
    EXPECT_EQ(pixels[1], SDL_MapRGB(picture->format, 0, 255, 0));
  }
}

TEST_F(ArchiveTest, DecodesTheIconWithoutAVideoMode) {
  WriteArchive("Graphics", 7, MakePng({.width = 32, .height = 32}));
  ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
  const SurfacePtr icon = mArchive.DecodeImage(7);
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->w, 32);
  EXPECT_EQ(mArchive.LoadImage(7), nullptr);
}

}  // namespace
}  // namespace tolva::test
