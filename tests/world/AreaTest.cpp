#include <algorithm>

#include <gtest/gtest.h>

#include "support/TempDir.h"
#include "world/Area.h"

namespace tolva::test {
namespace {

namespace fs = std::filesystem;

constexpr AreaPosition kPlace = {0x11223344, 0x55667788, 7, 6, -2};
constexpr const char* kFile = "area/11223344556677880706FFFFFFFE";

struct AreaCacheTest : ::testing::Test {
  AreaCacheTest() {
    fs::create_directory("area");
    area.SetPosition(kPlace);
    area.SetVersion(9);
    for (std::uint32_t k = 0; k < kAreaFields; ++k) {
      area.GetFields()[k].SetGroundId(0x01020300 + k);
      area.GetFields()[k].SetSmoothness(static_cast<std::uint8_t>(k));
      area.GetFields()[k].SetVoluId(0xFFFFFFFF - k);
    }
  }
  // Whether a new area for the same place does not load the file and stays as it was.
  static bool IsRejected() {
    Area target;
    target.SetPosition(kPlace);
    return !target.Load("area/") && target.GetVersion() == 0 &&
           std::ranges::all_of(target.GetFields(), [](const Field& field) {
             return field.GetGroundId() == kDefaultGroundId && field.GetVoluId() == 0 && field.GetSmoothness() == 0;
           });
  }

  const TempDir directory;
  Area area;
};

TEST_F(AreaCacheTest, WritesTheExactBytes) {
  WriteFile(kFile, "an older file");
  ASSERT_TRUE(area.Save("area/"));
  EXPECT_EQ(std::distance(fs::directory_iterator("area"), {}), 1) << "no temporary file is left";
  const std::string bytes = ReadFile(kFile);
  ASSERT_EQ(bytes.size(), 5196u);
  EXPECT_EQ(bytes.substr(0, 16), std::string("\x44\x33\x22\x11\x88\x77\x66\x55\x07\x06\xFE\x09\x00\x03\x02\x01", 16));
  EXPECT_EQ(bytes.substr(12 + 4 * 25, 4), "\x19\x03\x02\x01") << "ground of field (1, 1)";
  EXPECT_EQ(bytes.substr(2316 + 25, 1), "\x09") << "smoothness, low bits of 25";
  EXPECT_EQ(bytes.substr(2892 + 4 * 575, 4), "\xC0\xFD\xFF\xFF") << "volu of the last field";
}

TEST_F(AreaCacheTest, RejectsIncompleteFilesAndThoseOfOtherAreas) {
  ASSERT_TRUE(area.Save("area/"));
  const std::string good = ReadFile(kFile);
  for (std::size_t i = 0; i < 11; ++i) {
    std::string foreign = good;
    foreign[i] = static_cast<char>(foreign[i] ^ 0x10);
    WriteFile(kFile, foreign);
    EXPECT_TRUE(IsRejected()) << "other coordinates at " << i;
  }
  WriteFile(kFile, good + '\0');
  EXPECT_TRUE(IsRejected()) << "a byte too many";
  for (std::size_t size = good.size(); size-- > 0;) {
    fs::resize_file(kFile, size);
    ASSERT_TRUE(IsRejected()) << size << " bytes";
  }
}

}  // namespace
}  // namespace tolva::test
