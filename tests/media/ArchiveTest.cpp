#include <optional>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"

namespace tolva {
namespace {

using test::MakeIndex;
using test::MakePng;
using test::ReadFile;
using test::WriteArchive;
using test::WriteFile;

constexpr std::uint32_t kId = 6101;

class ArchiveTest : public ::testing::Test {
 protected:
  static void StartVideo() {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
    ASSERT_NE(SDL_SetVideoMode(64, 48, 16, SDL_SWSURFACE), nullptr);
  }
  void TearDown() override { SDL_Quit(); }

  // How often the log holds the text.
  static int CountInLog(const std::string& text) {
    const std::string log = ReadFile("log.clf");
    int count = 0;
    for (auto at = log.find(text); at != std::string::npos; at = log.find(text, at + 1)) ++count;
    return count;
  }

  test::TempDir mDir;
  InfoHandler mInfoHandler;
  Archive mArchive{"Graphics", &mInfoHandler};
};

TEST_F(ArchiveTest, ExtractsWhatTheIndexSaysOrLeavesTheTargetAlone) {
  const struct {
    const char* name;
    std::string index;
    std::optional<std::string> content;
  } cases[] = {
      {"one entry", MakeIndex({{7, 2, 3}}), "cde"},
      {"unsorted", MakeIndex({{9, 0, 1}, {7, 1, 2}, {8, 5, 1}}), "bc"},
      {"the later record of an id", MakeIndex({{7, 0, 4}, {8, 1, 1}, {7, 6, 2}}), "gh"},
      {"up to the last byte", MakeIndex({{7, 8, 2}}), "ij"},
      {"empty entry", MakeIndex({{7, 10, 0}}), ""},
      {"torn last record", MakeIndex({{7, 2, 3}, {7, 0, 1}}).substr(0, 23), "cde"},
      {"torn only record", MakeIndex({{7, 2, 3}}).substr(0, 11), std::nullopt},
      {"empty index", "", std::nullopt},
      {"other ids", MakeIndex({{6, 0, 1}, {0x07000000, 0, 1}}), std::nullopt},
      {"past the end", MakeIndex({{7, 8, 3}}), std::nullopt},
      {"starts past the end", MakeIndex({{7, 11, 0}}), std::nullopt},
      {"beyond 2^31", MakeIndex({{7, 0x80000000, 4}}), std::nullopt},
      {"sum beyond 2^32", MakeIndex({{7, 0xFFFFFFFF, 3}}), std::nullopt},
      {"size of 4 GB", MakeIndex({{7, 2, 0xFFFFFFFF}}), std::nullopt},
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
  std::filesystem::create_directory("folder");
  EXPECT_FALSE(mArchive.Extract(7, "folder"));
  EXPECT_FALSE(mArchive.Extract(7, "missing/Data.tmp"));
  EXPECT_FALSE(mArchive.Extract(7, "/dev/full"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(ArchiveTest, AnIndexThatCannotBeReadKeepsTheOldOne) {
  WriteArchive("Graphics", 7, "abc");
  ASSERT_TRUE(mArchive.ReadIndex());
  const std::pair<const char*, std::function<void()>> kinds[] = {
      {"folder", [] { std::filesystem::create_directory("Graphics.cci"); }},
      {"pipe", [] { ASSERT_EQ(::mkfifo("Graphics.cci", 0600), 0); }},
      {"huge file", [] {
         WriteFile("Graphics.cci", "");
         std::filesystem::resize_file("Graphics.cci", std::uint64_t{1} << 33);
       }}};
  for (const auto& [name, make] : kinds) {
    std::filesystem::remove("Graphics.cci");
    make();
    EXPECT_FALSE(mArchive.ReadIndex()) << name;
    EXPECT_TRUE(mArchive.Extract(7, "Data.tmp")) << name;
  }
  std::filesystem::remove("Graphics.cci");
  EXPECT_TRUE(mArchive.ReadIndex());
  EXPECT_FALSE(mArchive.Extract(7, "Data.tmp"));
}

TEST_F(ArchiveTest, SaysInTheLogWhyAPictureIsMissing) {
  StartVideo();
  const std::string png = MakePng({});
  const auto size = static_cast<std::uint32_t>(png.size());
  const char* const noId = "Image id in archive not found (Archive - LoadImage)\n";
  const char* const noFile = "Failed to open archive file (Archive - LoadImage)\n";
  const char* const noPlace = "Image id found in index, but not in archive (Archive - LoadImage)\n";
  const char* const noPicture = "Failed to load picture from archive (Archive - LoadImage)\n";
  const struct {
    const char* name;
    std::string index;
    std::optional<std::string> data;
    const char* message;  // null: the picture loads
  } cases[] = {
      {"sound", MakeIndex({{kId, 0, size}}), png, nullptr},
      {"the size does not count", MakeIndex({{kId, 3, 0}}), "abc" + png + "def", nullptr},
      {"unknown id", MakeIndex({{1, 0, size}}), png, noId},
      {"no index", "", png, noId},
      {"no data file", MakeIndex({{kId, 0, size}}), std::nullopt, noFile},
      {"offset beyond 2^31", MakeIndex({{kId, 0x80000000, size}}), png, noPlace},
      {"offset past the end", MakeIndex({{kId, 0x7FFFFFFF, size}}), png, noPicture},
      {"no picture", MakeIndex({{kId, 0, size}}), "RIFF" + png, noPicture},
      {"cut", MakeIndex({{kId, 0, size}}), png.substr(0, png.size() - 1), noPicture},
  };
  for (const auto& test : cases) {
    std::filesystem::remove("Graphics.cca");
    std::filesystem::remove("log.clf");
    WriteFile("Graphics.cci", test.index);
    if (test.data) WriteFile("Graphics.cca", *test.data);
    const SurfacePtr picture(mArchive.LoadImage(kId));
    EXPECT_EQ(picture == nullptr, test.message != nullptr) << test.name;
    EXPECT_EQ(CountInLog("\n"), test.message == nullptr ? 0 : 1) << test.name;
    const std::string line = " 001 " + std::string(22, ' ') + (test.message == nullptr ? "" : test.message);
    EXPECT_EQ(CountInLog(line), test.message == nullptr ? 0 : 1) << test.name;
  }
}

// The decoder loops for ever on some of these if it gets them.
TEST_F(ArchiveTest, APictureCutAnywhereIsMissing) {
  StartVideo();
  const std::string png =
      MakePng({.colour = PNG_COLOR_TYPE_PALETTE, .palette = {test::kMagenta, test::kBlack}, .alphas = {0, 255}});
  for (std::size_t length = 0; length < png.size(); ++length) {
    WriteArchive("Graphics", kId, png.substr(0, length));
    EXPECT_EQ(mArchive.LoadImage(kId), nullptr) << length;
  }
  WriteArchive("Graphics", kId, png);
  EXPECT_NE(SurfacePtr(mArchive.LoadImage(kId)), nullptr);
}

TEST_F(ArchiveTest, KeepsTheSeeThroughColourOfAPicture) {
  StartVideo();
  const std::string rgb = MakePng({.keys = {test::kMagentaKey}, .samples = {255, 0, 255, 0, 255, 0}});
  const std::string indexed = MakePng(
      {.colour = PNG_COLOR_TYPE_PALETTE, .palette = {test::kMagenta, {0, 255, 0}}, .alphas = {0}, .samples = {0, 1}});
  for (const std::string& png : {rgb, indexed}) {
    WriteArchive("Graphics", kId, png);
    const SurfacePtr picture(mArchive.LoadImage(kId));
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
  WriteArchive("Graphics", kId, MakePng({.width = 32, .height = 32}));
  ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_VIDEO), 0);
  const SurfacePtr icon(mArchive.DecodeImage(kId));
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->w, 32);
  EXPECT_EQ(icon->format->BitsPerPixel, 24);
  EXPECT_EQ(mArchive.LoadImage(kId), nullptr);
  EXPECT_EQ(CountInLog("Failed to load picture from archive"), 1);
}

}  // namespace
}  // namespace tolva
