#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "archive/ArchivePacker.h"
#include "archive/ArchiveReader.h"
#include "archive/PictureCheck.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"

namespace tolva {
namespace {

using test::kBlack;
using test::kMagenta;
using test::kMagentaKey;
using test::MakePng;
using test::ReadFile;
using test::TestPicture;
using test::WriteFile;

const std::string kFont("\0\x01\0\0font", 8);

std::string FaultOf(const std::string& file) {
  return FindPictureFault(std::span(reinterpret_cast<const std::uint8_t*>(file.data()), file.size()));
}

TEST(PictureCheck, RefusesWhatTheClientWouldShowWrongly) {
  constexpr int kIndexed = PNG_COLOR_TYPE_PALETTE, kGrey = PNG_COLOR_TYPE_GRAY, kRgb = PNG_COLOR_TYPE_RGB;
  const struct {
    const char* fault;  // a part of the reason; empty for a good picture
    TestPicture picture;
  } cases[] = {
      {"", {.colour = kRgb}},
      {"", {.colour = kRgb, .samples = {255, 0, 255}}},
      {"", {.colour = kRgb, .keys = {kMagentaKey}, .samples = {255, 0, 255, 247, 0, 255, 255, 4, 255}}},
      {"", {.colour = kGrey}},
      {"", {.colour = kGrey, .bitDepth = 1}},
      {"", {.colour = kIndexed, .palette = {kBlack, kMagenta}}},
      {"", {.colour = kIndexed, .palette = {kBlack, kMagenta}, .alphas = {255, 0}}},
      {"", {.colour = kIndexed, .bitDepth = 1, .palette = {kMagenta, kBlack}, .alphas = {0}, .samples = {0xF0}}},
      {"alpha channel", {.colour = PNG_COLOR_TYPE_RGBA}},
      {"alpha channel", {.colour = PNG_COLOR_TYPE_GRAY_ALPHA}},
      {"8 bits per sample", {.colour = kRgb, .bitDepth = 16}},
      {"grey", {.colour = kGrey, .keys = {{0, 0, 0, 0, 255}}}},
      {"transparent colour is (255,0,254)", {.colour = kRgb, .keys = {{0, 255, 0, 254, 0}}}},
      {"pixel at 1,0, (248,3,248)", {.colour = kRgb, .keys = {kMagentaKey}, .samples = {9, 9, 9, 248, 3, 248}}},
      {"entry is (0,0,0)", {.colour = kIndexed, .palette = {kBlack, kMagenta}, .alphas = {0}}},
      {"exactly one", {.colour = kIndexed, .palette = {kMagenta, kBlack}, .alphas = {0, 0}}},
      {"exactly one", {.colour = kIndexed, .palette = {kMagenta, kBlack}, .alphas = {255}}},
      {"partly", {.colour = kIndexed, .palette = {kMagenta, kBlack}, .alphas = {0, 128}}},
      {"entry 1, (255,0,255)", {.colour = kIndexed, .palette = {kMagenta, kMagenta}, .alphas = {0}}},
      {"entry 1, (250,2,249)", {.colour = kIndexed, .palette = {kMagenta, {250, 2, 249}}, .alphas = {0}}},
      {"higher than 4096", {.width = 1, .height = 4097, .colour = kGrey}},
  };
  for (const auto& test : cases) {
    const std::string fault = FaultOf(MakePng(test.picture));
    EXPECT_NE(fault.find(test.fault), std::string::npos) << "wanted " << test.fault << ", got " << fault;
    EXPECT_EQ(fault.empty(), *test.fault == '\0') << fault;
  }
}

TEST(PictureCheck, RefusesDamagedPixels) {
  const std::string png = MakePng({.colour = PNG_COLOR_TYPE_PALETTE, .palette = {kBlack}, .samples = {0}});
  const std::size_t pixels = png.find("IDAT") - 4;
  const std::string head = png.substr(0, pixels), end = test::MakeChunk("IEND", "");
  EXPECT_EQ(FaultOf(png), "");
  EXPECT_EQ(FaultOf(png + "x"), "it has more bytes behind its end");
  EXPECT_EQ(FaultOf(head + test::MakeChunk("IDAT", "no pixels") + end), "its pixels are damaged");
  // The pixels of a picture with two colours under a palette of one.
  const std::string two =
      MakePng({.colour = PNG_COLOR_TYPE_PALETTE, .palette = {kBlack, kBlack}, .samples = {0, 0, 0, 0, 0, 1}});
  EXPECT_EQ(FaultOf(head + two.substr(two.find("IDAT") - 4)), "row 1 names a colour that its palette does not have");
}

class ArchiveToolTest : public ::testing::Test {
 protected:
  ArchiveToolTest() { std::filesystem::create_directory("in"); }

  // Runs the program; its exit code.
  static int RunTool(const std::string& arguments) {
    const int status = std::system((TOLVA_ARCHIVE_PROGRAM " " + arguments + " >out.txt 2>err.txt").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  test::TempDir mDir;
};

TEST_F(ArchiveToolTest, PacksListsAndExtracts) {
  const std::string big = MakePng({.width = 70, .height = 35}), music = ReadFile(TOLVA_TEST_MUSIC);
  WriteFile("in/10.png", MakePng({}));
  WriteFile("in/9.png", big);
  WriteFile("in/4294967295.ogg", music);
  WriteFile("font.ttf", kFont);
  ASSERT_EQ(RunTool("pack in Graphics --file 1=font.ttf"), 0) << ReadFile("err.txt");
  const std::string index = ReadFile("Graphics.cci"), data = ReadFile("Graphics.cca");
  EXPECT_EQ(index.substr(0, 24), test::MakeIndex({{1, 0, 8}, {9, 8, static_cast<std::uint32_t>(big.size())}}));
  EXPECT_EQ(data, kFont + big + MakePng({}) + music);

  ASSERT_EQ(RunTool("list Graphics"), 0);
  const std::string list = ReadFile("out.txt");
  EXPECT_NE(list.find("         1          0          8 font\n"), std::string::npos) << list;
  EXPECT_NE(list.find(" picture 70x35\n"), std::string::npos) << list;
  EXPECT_NE(list.find("4294967295 "), std::string::npos) << list;
  EXPECT_NE(list.find(" 3569 music\n"), std::string::npos) << list;

  ASSERT_EQ(RunTool("extract Graphics 4294967295 piece.ogg"), 0);
  EXPECT_EQ(ReadFile("piece.ogg"), music);

  // The same files, found in another order, give the same bytes.
  std::filesystem::remove("in/9.png");
  WriteFile("in/9.png", big);
  ASSERT_EQ(RunTool("pack --file 1=font.ttf in Again"), 0);
  EXPECT_EQ(ReadFile("Again.cci"), index);
  EXPECT_EQ(ReadFile("Again.cca"), data);
}

TEST_F(ArchiveToolTest, ARefusedFileIsNamedAndLeavesTheOldArchiveAlone) {
  const struct {
    const char* name;
    std::string content;
    const char* reason;
  } cases[] = {
      {"readme.txt", "hello", "its name is not an id"},
      {"0.png", MakePng({}), "its name is not an id"},
      {"007.png", MakePng({}), "its name is not an id"},
      {"-7.png", MakePng({}), "its name is not an id"},
      {"4294967296.png", MakePng({}), "its name is not an id"},
      {".png", MakePng({}), "its name is not an id"},
      {"5.webp", MakePng({}), "its id is taken by in/5.png"},
      {"6.png", MakePng({}).substr(0, 60), "cut short"},
      {"6.png", MakePng({.colour = PNG_COLOR_TYPE_RGBA}), "alpha channel"},
      {"6.png", "GIF89a", "it is no PNG picture"},
      {"6.png", "", "it is no PNG picture"},
      {"6.ogg", "OggS" + std::string(24, '\0') + "OpusHead", "it is no PNG picture"},
  };
  WriteFile("in/5.png", MakePng({}));
  WriteFile("Old.cci", "old index");
  WriteFile("Old.cca", "old data");
  for (const auto& test : cases) {
    const std::string path = std::string("in/") + test.name;
    WriteFile(path, test.content);
    EXPECT_EQ(RunTool("pack in Old"), 1) << path;
    const std::string said = ReadFile("err.txt");
    EXPECT_NE(said.find(test.reason), std::string::npos) << path << " gave " << said;
    std::filesystem::remove(path);
  }
  std::filesystem::create_directory("in/8.png");
  EXPECT_EQ(RunTool("pack in Old"), 1);
  std::filesystem::remove_all("in");
  EXPECT_EQ(RunTool("pack in Old"), 1);
  std::filesystem::create_directory("in");
  EXPECT_EQ(RunTool("pack in Old"), 1);
  EXPECT_EQ(ReadFile("Old.cci"), "old index");
  EXPECT_EQ(ReadFile("Old.cca"), "old data");
  EXPECT_FALSE(std::filesystem::exists("Old.cca.part") || std::filesystem::exists("Old.cci.part"));
}

TEST_F(ArchiveToolTest, ADamagedArchiveIsSaidToBeOne) {
  EXPECT_EQ(RunTool("list Graphics"), 1);
  WriteFile("Graphics.cci", test::MakeIndex({{1, 0, 8}, {2, 4, 8}, {3, 8, 20}, {4, 0xFFFFFFFF, 1}}));
  EXPECT_EQ(RunTool("list Graphics"), 1);
  WriteFile("Graphics.cca", kFont + MakePng({}).substr(0, 40));
  ASSERT_EQ(RunTool("list Graphics"), 0);
  const std::string list = ReadFile("out.txt");
  EXPECT_NE(list.find(" 8 unknown\n"), std::string::npos) << list;
  EXPECT_NE(list.find(" 20 broken picture: it is cut short\n"), std::string::npos) << list;
  EXPECT_NE(list.find(" 1 outside the data file\n"), std::string::npos) << list;
  EXPECT_EQ(RunTool("extract Graphics 4 x"), 1);
  EXPECT_EQ(RunTool("extract Graphics 1 x"), 0);
  WriteFile("Graphics.cci", "torn");
  EXPECT_EQ(RunTool("list Graphics"), 1);
}

TEST_F(ArchiveToolTest, AnswersUsageWithItsOwnExitCodes) {
  for (const char* const good : {"--help", "pack --help", "--version"}) EXPECT_EQ(RunTool(good), 0) << good;
  for (const char* const bad : {"", "mend", "pack in", "extract Graphics one x", "extract Graphics 4294967296 x",
                                "pack in out --file font.ttf", "pack in out --file 0=font.ttf"}) {
    EXPECT_EQ(RunTool(bad), 2) << bad;
    EXPECT_NE(ReadFile("err.txt"), "") << bad;
  }
}

}  // namespace
}  // namespace tolva
