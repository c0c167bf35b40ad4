#include <gtest/gtest.h>
#include <sys/stat.h>

#include "archive/ArchiveReader.h"
#include "support/TestArchive.h"

namespace tolva::test {
namespace {

using State = ArchiveIndex::State;

class ArchiveReaderTest : public ::testing::Test {
 protected:
  TempDir mDir;
  ArchiveReader mReader{"Graphics"};
};

TEST_F(ArchiveReaderTest, ExtractsTheEntryOrLeavesTheTargetAsItWas) {
  const std::string kept = "what was there before";
  const struct {
    const char* name;
    std::string index;
    ArchiveFault fault;
    std::string content;
  } cases[] = {
      {"unsorted", MakeIndex({{9, 0, 1}, {7, 1, 2}, {8, 5, 1}}), ArchiveFault::None, "bc"},
      {"two records", MakeIndex({{7, 0, 4}, {8, 1, 1}, {7, 6, 2}}), ArchiveFault::None, "gh"},
      {"up to the last byte", MakeIndex({{7, 8, 2}}), ArchiveFault::None, "ij"},
      {"empty entry", MakeIndex({{7, 10, 0}}), ArchiveFault::None, ""},
      {"torn last record", MakeIndex({{7, 2, 3}, {7, 0, 1}}).substr(0, 23), ArchiveFault::None, "cde"},
      {"other ids", MakeIndex({{6, 0, 1}, {0x07000000, 0, 1}}), ArchiveFault::NoEntry, kept},
      {"past the end", MakeIndex({{7, 8, 3}}), ArchiveFault::OutsideDataFile, kept},
      {"starts past the end", MakeIndex({{7, 11, 0}}), ArchiveFault::OutsideDataFile, kept},
      {"sum beyond 2^32", MakeIndex({{7, 0xFFFFFFFF, 3}}), ArchiveFault::OutsideDataFile, kept},
  };
  WriteFile("Graphics.cca", "abcdefghij");
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    WriteFile("Graphics.cci", test.index);
    WriteFile("Data.tmp", kept);
    mReader.ReadIndex();
    EXPECT_EQ(mReader.Extract(7, "Data.tmp"), test.fault);
    EXPECT_EQ(ReadFile("Data.tmp"), test.content);
    EXPECT_FALSE(std::filesystem::exists("Data.tmp.part"));
  }
}

TEST_F(ArchiveReaderTest, ExtractFailsWhereTheTargetCannotBeWritten) {
  WriteArchive("Graphics", 7, "abc");
  mReader.ReadIndex();
  for (const char* const target : {".", "missing/Data.tmp", "/dev/full"}) {
    EXPECT_EQ(mReader.Extract(7, target), ArchiveFault::NotWritten) << target;
  }
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(ArchiveReaderTest, KeepsTheOldIndexWhenTheNewOneCannotBeRead) {
  WriteArchive("Graphics", 7, "abc");
  ASSERT_EQ(mReader.ReadIndex(), State::Whole);
  std::filesystem::resize_file("Graphics.cci", std::uint64_t{1} << 33);
  EXPECT_EQ(mReader.ReadIndex(), State::Unreadable) << "too many records";
  std::filesystem::remove("Graphics.cci");
  ASSERT_EQ(::mkfifo("Graphics.cci", 0600), 0);
  EXPECT_EQ(mReader.ReadIndex(), State::Unreadable) << "a pipe";
  EXPECT_EQ(mReader.Extract(7, "Data.tmp"), ArchiveFault::None);
  std::filesystem::remove("Graphics.cci");
  EXPECT_EQ(mReader.ReadIndex(), State::Missing);
  EXPECT_EQ(mReader.Extract(7, "Data.tmp"), ArchiveFault::NoEntry);
}

}  // namespace
}  // namespace tolva::test
