#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "foundation/Error.h"
#include "foundation/Ini.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

namespace fs = std::filesystem;

struct IniTest : ::testing::Test {
  // Why saving fails; empty when it succeeds.
  static std::string SaveFault(const Ini& ini) {
    try {
      ini.Save();
      return "";
    } catch (Error* caught) {
      const std::unique_ptr<Error> error(caught);
      return std::string(error->GetModule()) + ' ' + error->GetMethod() + ": " + error->GetMessage();
    }
  }
  static std::string SaveFault(const char* value) {
    Ini ini("client.ini");
    ini.SetValue("S", "k", value);
    return SaveFault(ini);
  }

  static constexpr char kCannotOpen[] = "Ini WriteIni: Unable to open ini file";
  const TempDir dir;
};

TEST_F(IniTest, LoadsSectionsAndPairsAndSavesOnlyThose) {
  const std::string longValue(300, 'v');
  const struct {
    const char* name;
    std::string file, saved;
    const char *section = "S", *key = "k", *value = nullptr;
  } cases[] = {
      {"two sections", "[A]\nx=1\n[B]\nx=2\n", "[A]\nx=1\n[B]\nx=2\n", "B", "x", "2"},
      {"look-up in the first of a name", "[D]\nH=7\n[D]\nW=1\n", "[D]\nH=7\n[D]\nW=1\n", "D", "W"},
      {"repeated key", "[S]\nk=1\nk=2\n", "[S]\nk=2\n", "S", "k", "2"},
      {"text after a header", "[LONGERNAME]\n[NET]x\nk=1", "[LONGERNAME]\n[NET]\nk=1\n", "NET", "k", "1"},
      {"unclosed header", "[S\nk=1\n", "[S\n]\nk=1\n", "S\n", "k", "1"},
      {"blanks", "[S]\nWidth = 1024\n", "[S]\nWidth = 1024\n", "S", "Width ", " 1024"},
      {"case of a key", "[S]\nK=1\n", "[S]\nK=1\n"},
      {"lines that are no pair", "k=1\n[S]\nk=\nk\n\n; note\n", "[S]\n"},
      {"several separators", "[S]\n==Port==7000\nk=b=c\n", "[S]\nPort=7000\nk=b\n", "S", "Port", "7000"},
      {"empty file", "", ""},
      {"long line", "[S]\nk=" + longValue + "\n", "[S]\nk=" + longValue.substr(0, 252) + "\n", "S", "z"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    WriteFile("client.ini", test.file);
    const Ini ini("client.ini");
    EXPECT_STREQ(ini.GetValue(test.section, test.key), test.value);
    EXPECT_EQ(SaveFault(ini), "");
    EXPECT_EQ(ReadFile("client.ini"), test.saved);
  }
}

TEST_F(IniTest, KeepsTextsItHandedOutValidWhileItChanges) {
  WriteFile("client.ini", "[A]\nx=1\n");
  Ini ini("client.ini");
  const char* handedOut = ini.GetValue("A", "x");
  for (const char* name : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
    ini.SetValue("A", name, name);
    ini.SetValue(name, "k", "0");
  }
  EXPECT_STREQ(handedOut, "1");
  ini.SetValue("A", "x", handedOut);
  EXPECT_EQ(SaveFault(ini), "");
  EXPECT_TRUE(ReadFile("client.ini").starts_with("[A]\nx=1\n0=0\n"));
  EXPECT_TRUE(ReadFile("client.ini").ends_with("[9]\nk=0\n"));
}

TEST_F(IniTest, SavesThroughALinkAndKeepsTheFilesRights) {
  fs::create_directory("home");
  fs::create_symlink("home/real.ini", "client.ini");
  EXPECT_EQ(SaveFault("new"), "") << "a dangling link";
  fs::permissions("home/real.ini", fs::perms{0640});
  EXPECT_EQ(SaveFault("1"), "");
  EXPECT_EQ(ReadFile("home/real.ini"), "[S]\nk=1\n");
  EXPECT_EQ(fs::status("home/real.ini").permissions(), fs::perms{0640});
  EXPECT_TRUE(fs::is_symlink("client.ini"));
}

TEST_F(IniTest, KeepsTheOldFileOnAFullDisk) {
  ASSERT_EQ(SaveFault("1"), "");
  // A limit on the size of files is as full as a process can make its disk.
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit before, small{7, 7};
  ::getrlimit(RLIMIT_FSIZE, &before);
  small.rlim_max = before.rlim_max;
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_EQ(SaveFault("2"), kCannotOpen);
  ::setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(ReadFile("client.ini"), "[S]\nk=1\n");
  EXPECT_EQ(std::distance(fs::directory_iterator("."), {}), 1) << "no temporary file is left";
}

TEST_F(IniTest, SavesInPlaceWhereItCannotMakeANewFile) {
  fs::create_directories("client.ini.part/in the way");
  EXPECT_EQ(SaveFault("a longer one"), "");
  EXPECT_EQ(SaveFault("3"), "");
  EXPECT_EQ(ReadFile("client.ini"), "[S]\nk=3\n");
  const struct { const char *device, *fault; } cases[] = {{"/dev/null", ""}, {"/dev/full", kCannotOpen}};
  for (const auto& test : cases) {
    fs::remove("client.ini");
    fs::create_symlink(test.device, "client.ini");
    EXPECT_EQ(SaveFault("4"), test.fault) << test.device;
    EXPECT_TRUE(fs::is_character_file(test.device));
  }
}

TEST_F(IniTest, IsEmptyAndFailsToSaveWithoutAUsableFile) {
  ASSERT_EQ(::mkfifo("client.ini", 0666), 0);
  EXPECT_EQ(Ini("client.ini").Load(), 0);
  EXPECT_EQ(SaveFault("1"), kCannotOpen) << "a pipe without a reader";
  fs::remove("client.ini");
  fs::create_directory("client.ini");
  EXPECT_EQ(Ini("client.ini").GetValue("NETWORK", "Host"), nullptr);
  EXPECT_EQ(SaveFault("1"), kCannotOpen) << "a directory";
}

}  // namespace
}  // namespace tolva::test
