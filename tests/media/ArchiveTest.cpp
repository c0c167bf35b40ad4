#include <optional>

#include <gtest/gtest.h>
#include <sys/stat.h>

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

TEST_F(ArchiveTest, ExtractsWhatTheIndexSaysOrLeavesTheTargetAlone) {
  const struct {
    const char* name;
    std::string index;
    std::optional<std::string> content;
  } cases[] = {
      {"unsorted", MakeIndex({{9, 0, 1}, {7, 1, 2}, {8, 5, 1}}), "bc"},
      {"the later record of an id", MakeIndex({{7, 0, 4}, {8, 1, 1}, {7, 6, 2}}), "gh"},
      {"up to the last byte", MakeIndex({{7, 8, 2}}), "ij"},
      {"empty entry", MakeIndex({{7, 10, 0}}), ""},
      {"torn last record", MakeIndex({{7, 2, 3}, {7, 0, 1}}).substr(0, 23), "cde"},
      {"other ids", MakeIndex({{6, 0, 1}, {0x07000000, 0, 1}}), std::nullopt},
      {"past the end", MakeIndex({{7, 8, 3}}), std::nullopt},
      {"starts past the end", MakeIndex({{7, 11, 0}}), std::nullopt},
      {"sum beyond 2^32", MakeIndex({{7, 0xFFFFFFFF, 3}}), std::nullopt},
  };
  WriteFile("Graphics.cca", "abcdefghij");
  for (const auto& test : cases) {
    WriteFile("Graphics.cci", test.index);
    WriteFile("Data.tmp", "what was there before");
    EXPECT_EQ(mArchive.Extract(7, "Data.tmp"), test.content.has_value()) << test.name;
    EXPECT_EQ(ReadFile("Data.tmp"), test.content.value_or("what was there before")) << test.name;
    EXPECT_FALSE(std::filesystem::exists("Data.tmp.part")) << test.name;
  }
}

TEST_F(ArchiveTest, ExtractFailsWhereTheTargetCannotBeWritten) {
  WriteArchive("Graphics", 7, "abc");
  for (const char* const target : {".", "missing/Data.tmp", "/dev/full"}) EXPECT_FALSE(mArchive.Extract(7, target));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(ArchiveTest, AnIndexThatCannotBeReadKeepsTheOldOne) {
  WriteArchive("Graphics", 7, "abc");
  ASSERT_TRUE(mArchive.ReadIndex());
  std::filesystem::resize_file("Graphics.cci", std::uint64_t{1} << 33);
  EXPECT_FALSE(mArchive.ReadIndex());
  EXPECT_TRUE(mArchive.Extract(7, "Data.tmp"));
  std::filesystem::remove("Graphics.cci");
  ASSERT_EQ(::mkfifo("Graphics.cci", 0600), 0);
  EXPECT_FALSE(mArchive.ReadIndex());
  EXPECT_TRUE(mArchive.Extract(7, "Data.tmp"));
  std::filesystem::remove("Graphics.cci");
  EXPECT_TRUE(mArchive.ReadIndex());
  EXPECT_FALSE(mArchive.Extract(7, "Data.tmp"));
}

TEST_F(ArchiveTest, SaysInTheLogWhyAPictureIsMissing) {
  StartVideo();
  const std::string png = MakePng({});
  const std::string noId = "Image id in archive not found (Archive - LoadImage)\n";
  const std::string noFile = "Failed to open archive file (Archive - LoadImage)\n";
  const std::string noPlace = "Image id found in index, but not in archive (Archive - LoadImage)\n";
  const std::string noPicture = "Failed to load picture from archive (Archive - LoadImage)\n";
  const struct {
    std::string message;  // empty: the picture loads
    std::string index;
    std::optional<std::string> data;
  } cases[] = {
      {"", MakeIndex({{7, 3, 0}}), "abc" + png + "def"},
      {noId, MakeIndex({{1, 0, 0}}), png},
      {noFile, MakeIndex({{7, 0, 0}}), std::nullopt},
      {noPlace, MakeIndex({{7, 0x80000000, 0}}), png},
      {noPicture, MakeIndex({{7, 0x7FFFFFFF, 0}}), png},
      {noPicture, MakeIndex({{7, 0, 0}}), "RIFF" + png},
      {noPicture, MakeIndex({{7, 0, 0}}), png.substr(0, png.size() - 1)},
  };
  for (const auto& test : cases) {
    std::filesystem::remove("Graphics.cca");
    std::filesystem::remove("log.clf");
    WriteFile("Graphics.cci", test.index);
    if (test.data) WriteFile("Graphics.cca", *test.data);
    const SurfacePtr picture(mArchive.LoadImage(7));
    EXPECT_EQ(picture != nullptr, test.message.empty()) << &test - cases;
    const std::string line = test.message.empty() ? "" : " 001 " + std::string(22, ' ') + test.message;
    const std::string log = ReadFile("log.clf");
    EXPECT_EQ(log.substr(std::min(log.find(" 001 "), log.size())), line);
  }
}

TEST_F(ArchiveTest, KeepsTheSeeThroughColourOfAPicture) {
  StartVideo();
  const std::string rgb = MakePng({.seeThrough = {0, 255, 0, 0, 0, 255}, .samples = {255, 0, 255, 0, 255, 0}});
  const std::string indexed = MakePng(
      {.colour = PngColour::Palette, .palette = {255, 0, 255, 0, 255, 0}, .seeThrough = {0}, .samples = {0, 1}});
  for (const std::string& png : {rgb, indexed}) {
    WriteArchive("Graphics", 7, png);
    const SurfacePtr picture(mArchive.LoadImage(7));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->format->BitsPerPixel, SDL_GetVideoSurface()->format->BitsPerPixel);
    EXPECT_TRUE(picture->flags & SDL_SRCCOLORKEY);
    EXPECT_EQ(picture->format->colorkey, SDL_MapRGB(picture->format, 255, 0, 255));
    const auto* pixels = static_cast<const std::uint16_t*>(picture->pixels);
    EXPECT_EQ(pixels[0], picture->format->colorkey);
    EXPECT_EQ(pixels[1], SDL_MapRGB(picture->format, 0, 255, 0));
  }
}

TEST_F(ArchiveTest, TheIconNeedsNoVideoMode) {
  WriteArchive("Graphics", 7, MakePng({.width = 32, .height = 32}));
  ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
  const SurfacePtr icon(mArchive.DecodeImage(7));
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->w, 32);
  EXPECT_EQ(mArchive.LoadImage(7), nullptr);
}

}  // namespace
}  // namespace tolva::test
