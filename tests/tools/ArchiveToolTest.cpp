#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "support/TestArchive.h"
#include "support/TestPng.h"
#include "tools/archive/PictureCheck.h"

namespace tolva::test {
namespace {

using ::testing::IsSubstring;

const std::string kFont("\0\x01\0\0font", 8);

std::string FaultOf(const std::string& file) {
  return FindPictureFault(std::span(reinterpret_cast<const std::uint8_t*>(file.data()), file.size()));
}

TEST(PictureCheck, RefusesWhatTheClientWouldShowWrongly) {
  constexpr auto kPalette = PngColor::Palette;
  const Bytes key{0, 255, 0, 0, 0, 255}, twoColors{255, 0, 255, 0, 0, 0};  // magenta and black
  const struct {
    const char* name;
    const char* fault;  // a part of the reason; empty for a good picture
    TestPicture picture;
  } cases[] = {
      {"colors next to the key", "", {.seeThrough = key, .samples = {255, 0, 255, 247, 0, 255, 255, 4, 255}}},
      {"gray", "", {.color = PngColor::Gray, .bitDepth = 1}},
      {"see-through entry",
       "",
       {.color = kPalette, .bitDepth = 1, .palette = twoColors, .seeThrough = {0}, .samples = {0xF0}}},
      {"alpha", "alpha channel", {.color = PngColor::Rgba}},
      {"16 bits", "8 bits per sample", {.bitDepth = 16}},
      {"gray key", "transparent gray", {.color = PngColor::Gray, .seeThrough = {0, 255}}},
      {"other key", "transparent color is (255,0,254)", {.seeThrough = {0, 255, 0, 0, 0, 254}}},
      {"opaque pixel like the key",
       "pixel at 1,0, (248,3,248)",
       {.seeThrough = key, .samples = {9, 9, 9, 248, 3, 248}}},
      {"other see-through entry", "entry is (0,0,0)", {.color = kPalette, .palette = Bytes(6), .seeThrough = {0}}},
      {"two see-through entries", "exactly one", {.color = kPalette, .palette = twoColors, .seeThrough = {0, 0}}},
      {"half-transparent entry", "partly", {.color = kPalette, .palette = twoColors, .seeThrough = {0, 128}}},
      {"opaque entry like the key",
       "entry 1, (250,2,249)",
       {.color = kPalette, .palette = {255, 0, 255, 250, 2, 249}, .seeThrough = {0}}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    const std::string fault = FaultOf(MakePng(test.picture));
    EXPECT_PRED_FORMAT2(IsSubstring, test.fault, fault);
    EXPECT_EQ(fault.empty(), *test.fault == '\0');
  }
}

TEST(PictureCheck, RefusesDamagedPixels) {
  const std::string png = MakePng({.color = PngColor::Palette, .palette = Bytes(3)});
  const std::string head = png.substr(0, png.find("IDAT") - 4);
  EXPECT_EQ(FaultOf(png + "x"), "it has more bytes after its end chunk");
  EXPECT_EQ(FaultOf(head + MakeChunk("IDAT", "no pixels") + MakeChunk("IEND", "")), "its pixels are damaged");
  const std::string noEntry = MakePng({.color = PngColor::Palette, .palette = Bytes(3), .samples = {0, 0, 0, 0, 0, 1}});
  EXPECT_EQ(FaultOf(noEntry), "row 1 uses a color that its palette does not have");
}

class ArchiveToolTest : public ::testing::Test {
 protected:
  ArchiveToolTest() { std::filesystem::create_directory("in"); }

  // Runs the program and returns its exit code.
  static int RunTool(const std::string& arguments) {
    const int status = std::system((TOLVA_ARCHIVE_PROGRAM " " + arguments + " >out.txt 2>err.txt").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TempDir mDir;
};

TEST_F(ArchiveToolTest, PacksListsAndExtracts) {
  const std::string big = MakePng({.width = 70, .height = 35}), music = ReadFile(TOLVA_TEST_MUSIC);
  WriteFile("in/10.png", MakePng({}));
  WriteFile("in/9.png", big);
  WriteFile("in/4294967295.ogg", music);
  WriteFile("font.ttf", kFont);
  ASSERT_EQ(RunTool("pack in Graphics --file 1=font.ttf"), 0) << ReadFile("err.txt");
  EXPECT_EQ(ReadFile("Graphics.cci").substr(0, 24),
            MakeIndex({{1, 0, 8}, {9, 8, static_cast<std::uint32_t>(big.size())}}));
  EXPECT_EQ(ReadFile("Graphics.cca"), kFont + big + MakePng({}) + music);
  ASSERT_EQ(RunTool("list Graphics"), 0);
  const std::string list = ReadFile("out.txt");
  for (const char* const part : {"         1          0          8 font\n", " picture 70x35\n", " 3569 music\n"}) {
    EXPECT_PRED_FORMAT2(IsSubstring, part, list);
  }
  ASSERT_EQ(RunTool("extract Graphics 4294967295 piece.ogg"), 0);
  EXPECT_EQ(ReadFile("piece.ogg"), music);
}

TEST_F(ArchiveToolTest, NamesARefusedFileAndKeepsTheOldArchive) {
  const struct {
    std::string name, content;
    const char* reason;
  } cases[] = {
      {"readme.txt", "hello", "its name is not an id"},
      {"007.png", MakePng({}), "its name is not an id"},
      {"4294967296.png", MakePng({}), "its name is not an id"},
      {".png", MakePng({}), "its name is not an id"},
      {"5.webp", MakePng({}), "its id is taken by in/5.png"},
      {"6.png", MakePng({}).substr(0, 60), "cut short"},
      {"6.ogg", "OggS" + std::string(24, '\0') + "OpusHead", "it is not a PNG picture"},
  };
  WriteFile("in/5.png", MakePng({}));
  WriteFile("Old.cci", "old index");
  WriteFile("Old.cca", "old data");
  for (const auto& test : cases) {
    const std::string path = "in/" + test.name;
    WriteFile(path, test.content);
    EXPECT_EQ(RunTool("pack in Old"), 1) << path;
    EXPECT_PRED_FORMAT2(IsSubstring, test.reason, ReadFile("err.txt"));
    std::filesystem::remove(path);
  }
  EXPECT_EQ(RunTool("pack in nowhere/Old"), 1);
  EXPECT_EQ(ReadFile("err.txt"),
            "tolva-archive: nowhere/Old: the archive cannot be written\n"
            "tolva-archive: nowhere/Old was not written\n");
  std::filesystem::remove_all("in");
  EXPECT_EQ(RunTool("pack in Old"), 1);
  std::filesystem::create_directory("in");
  EXPECT_EQ(RunTool("pack in Old"), 1);
  EXPECT_EQ(ReadFile("Old.cci"), "old index");
  EXPECT_EQ(ReadFile("Old.cca"), "old data");
  EXPECT_FALSE(std::filesystem::exists("Old.cca.part"));
  EXPECT_FALSE(std::filesystem::exists("Old.cci.part"));
}

TEST_F(ArchiveToolTest, ReportsADamagedArchive) {
  EXPECT_EQ(RunTool("list Graphics"), 1) << "no index";
  WriteFile("Graphics.cci", MakeIndex({{1, 0, 8}, {2, 4, 8}, {3, 8, 20}, {4, 0xFFFFFFFF, 1}}));
  EXPECT_EQ(RunTool("list Graphics"), 1) << "no data file";
  WriteFile("Graphics.cca", kFont + MakePng({}).substr(0, 40));
  EXPECT_EQ(RunTool("list Graphics"), 1);
  EXPECT_PRED_FORMAT2(IsSubstring, "broken entries: 2\n", ReadFile("err.txt"));
  const std::string list = ReadFile("out.txt");
  for (const char* const part : {" 8 unknown\n", " broken picture: it is cut short\n", " outside the data file\n"}) {
    EXPECT_PRED_FORMAT2(IsSubstring, part, list);
  }
  EXPECT_EQ(RunTool("extract Graphics 4 x"), 1);
  WriteFile("Graphics.cci", "torn");
  EXPECT_EQ(RunTool("list Graphics"), 1) << "a torn index";
}

TEST_F(ArchiveToolTest, ExitsWithACodeOfItsOwnForWrongUsage) {
  for (const char* const good : {"--help", "--version"}) EXPECT_EQ(RunTool(good), 0) << good;
  for (const char* const bad :
       {"", "mend", "pack in", "extract Graphics 4294967296 x", "pack in out --file 0=font.ttf"})
    EXPECT_EQ(RunTool(bad), 2) << bad;
}

}  // namespace
}  // namespace tolva::test
