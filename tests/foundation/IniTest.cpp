#include <csignal>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "foundation/Guard.h"
#include "foundation/Ini.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

TEST(Ini, TakesInSectionsAndPairsAndSkipsTheRest) {
  const std::string longValue(300, 'v');
  const struct {
    std::string file, saved;
    const char *section = "S", *key = "k", *value = nullptr;
  } cases[] = {{"[A]\nx=1\n[B]\nx=2\n", "[A]\nx=1\n[B]\nx=2\n", "B", "x", "2"},
               {"[D]\nH=7\n[D]\nW=1\n", "[D]\nH=7\n[D]\nW=1\n", "D", "W"},  // asked for in the first of the name only
               {"[S]\nk=1\nk=2\n", "[S]\nk=2\n", "S", "k", "2"},
               {"[LONGERNAME]\n[NET]x\nk=1", "[LONGERNAME]\n[NET]\nk=1\n", "NET", "k", "1"},
               {"[S\nk=1\n", "[S\n]\nk=1\n", "S\n", "k", "1"},
               {"[S]\nWidth = 1024\n", "[S]\nWidth = 1024\n", "S", "Width ", " 1024"},
               {"[S]\nK=1\n", "[S]\nK=1\n"},
               {"k=1\n[S]\nk=\nk\n\n; note\n", "[S]\n"},
               {"[S]\n==Port==7000\nk=b=c\n", "[S]\nPort=7000\nk=b\n", "S", "Port", "7000"},
               {"", ""},
               {"[S]\nk=" + longValue + "\n", "[S]\nk=" + longValue.substr(0, 252) + "\n", "S", "z"}};
  const TempDir dir;
  for (const auto& c : cases) {
    WriteFile("client.ini", c.file);
    const Ini ini("client.ini");
    EXPECT_STREQ(ini.GetValue(c.section, c.key), c.value) << c.file;
    ini.Save();
    EXPECT_EQ(ReadFile("client.ini"), c.saved);
  }
}

TEST(Ini, KeepsChangesAndTheTextsItHandedOut) {
  const TempDir dir;
  WriteFile("client.ini", "[A]\nx=1\n");
  Ini ini("client.ini");
  const char* handedOut = ini.GetValue("A", "x");
  for (const char* name : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
    ini.SetValue("A", name, name);
    ini.SetValue(name, "k", "0");
  }
  EXPECT_STREQ(handedOut, "1");
  ini.SetValue("A", "x", handedOut);
  ini.Save();
  EXPECT_TRUE(ReadFile("client.ini").starts_with("[A]\nx=1\n0=0\n"));
  EXPECT_TRUE(ReadFile("client.ini").ends_with("[9]\nk=0\n"));
}

// What Save must not do to files that other programs or users care for.
TEST(Ini, SavesThroughLinksWithTheOldRightsOrInPlaceAndLosesNothing) {
  namespace fs = std::filesystem;
  const TempDir dir;
  fs::create_directory("home");
  ErrHandler handler;
  const auto saves = [&](const char* value) {
    Ini ini("client.ini");
    ini.SetValue("S", "k", value);
    return Report(handler, "Test", "Save", [&] { ini.Save(); });
  };
  const auto rightsOf = [](const char* path) { return static_cast<unsigned>(fs::status(path).permissions()); };
  fs::create_symlink("home/real.ini", "client.ini");
  EXPECT_TRUE(saves("new")) << "a link that leads nowhere yet";
  fs::permissions("home/real.ini", fs::perms{0640});
  EXPECT_TRUE(saves("1"));
  EXPECT_EQ(ReadFile("home/real.ini"), "[S]\nk=1\n");
  EXPECT_EQ(rightsOf("home/real.ini"), 0640u);
  EXPECT_TRUE(fs::is_symlink("client.ini"));

  // A full disk, as far as a process can make one for itself.
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit before, small{7, 7};
  ::getrlimit(RLIMIT_FSIZE, &before);
  small.rlim_max = before.rlim_max;
  ::setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_FALSE(saves("2"));
  ::setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(ReadFile("home/real.ini"), "[S]\nk=1\n");
  EXPECT_EQ(std::distance(fs::directory_iterator("home"), {}), 1) << "nothing is left beside";

  fs::create_directories("home/real.ini.part/in the way");
  EXPECT_TRUE(saves("a longer one"));
  EXPECT_TRUE(saves("3"));
  EXPECT_EQ(ReadFile("home/real.ini"), "[S]\nk=3\n");
  for (const char* device : {"/dev/full", "/dev/null"}) {
    fs::remove("client.ini");
    fs::create_symlink(device, "client.ini");
    EXPECT_EQ(saves("4"), device == std::string("/dev/null")) << device;
    EXPECT_TRUE(fs::is_character_file(device));
  }
  fs::remove("client.ini");
  Ini ini("client.ini");
  ::mkfifo("client.ini", 0666);
  EXPECT_EQ(ini.Load(), 0);
  EXPECT_FALSE(Report(handler, "Test", "Save", [&] { ini.Save(); })) << "nobody reads the pipe";
}

TEST(Ini, WithoutAUsableFileIsEmptyAndFailsWhenSaved) {
  const TempDir dir;
  std::filesystem::create_directory("client.ini");
  const Ini ini("client.ini");
  EXPECT_EQ(ini.GetValue("NETWORK", "Host"), nullptr);
  ErrHandler handler;
  EXPECT_FALSE(Report(handler, "Test", "Save", [&] { ini.Save(); }));
}

}  // namespace
}  // namespace tolva::test
