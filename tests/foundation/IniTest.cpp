#include <filesystem>

#include <gtest/gtest.h>

#include "foundation/Error.h"
#include "foundation/Ini.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

struct IniCase {
  const char* name;
  std::string file;
  std::string saved;  // shows what was taken in
  const char* section = "S";
  const char* key = "k";
  const char* value = nullptr;
};

std::ostream& operator<<(std::ostream& stream, const IniCase& c) { return stream << c.name; }

class IniFile : public testing::TestWithParam<IniCase> {
 protected:
  TempDir mDir;
};

TEST_P(IniFile, IsReadAndWrittenBack) {
  const IniCase& c = GetParam();
  WriteFile("client.ini", c.file);
  const Ini ini("client.ini");
  EXPECT_STREQ(ini.GetValue(c.section, c.key), c.value);
  ini.Save();
  EXPECT_EQ(ReadFile("client.ini"), c.saved);
}

const std::string kLong(300, 'v');

INSTANTIATE_TEST_SUITE_P(
    Files, IniFile,
    testing::Values(
        IniCase{"TwoSections", "[A]\nx=1\n[B]\nx=2\n", "[A]\nx=1\n[B]\nx=2\n", "B", "x", "2"},
        IniCase{"LookUpStopsAtFirstOfName", "[D]\nH=7\n[D]\nW=1\n", "[D]\nH=7\n[D]\nW=1\n", "D", "W"},
        IniCase{"LastOfRepeatedKeys", "[S]\nk=1\nk=2\n", "[S]\nk=2\n", "S", "k", "2"},
        IniCase{"NameStopsAtBracket", "[LONGERNAME]\n[NET]x\nk=1", "[LONGERNAME]\n[NET]\nk=1\n", "NET", "k", "1"},
        IniCase{"NameWithoutBracketKeepsItsLineFeed", "[S\nk=1\n", "[S\n]\nk=1\n", "S\n", "k", "1"},
        IniCase{"BlanksBelong", "[S]\nWidth = 1024\n", "[S]\nWidth = 1024\n", "S", "Width ", " 1024"},
        IniCase{"CaseMatters", "[S]\nK=1\n", "[S]\nK=1\n"}, IniCase{"NoValue", "[S]\nk=\nk\n\n; note\n", "[S]\n"},
        IniCase{"LeadingSeparators", "[S]\n==Port==7000\n", "[S]\nPort=7000\n", "S", "Port", "7000"},
        IniCase{"ThirdTokenIgnored", "[S]\nk=b=c\n", "[S]\nk=b\n", "S", "k", "b"},
        IniCase{"BeforeFirstSection", "k=1\n[S]\n", "[S]\n"}, IniCase{"Empty", "", ""},
        IniCase{"LongLineIsCut", "[S]\nk=" + kLong + "\n", "[S]\nk=" + kLong.substr(0, 252) + "\n", "S", "z"}),
    [](const auto& file) { return file.param.name; });

TEST(Ini, KeepsChangesAndTheTextsItHandedOut) {
  const TempDir dir;
  WriteFile("client.ini", "[A]\nx=1\n");
  Ini ini("client.ini");
  const char* handedOut = ini.GetValue("A", "x");
  for (int i = 0; i < 50; ++i) {
    const std::string name = std::to_string(i);
    ini.SetValue("A", name.c_str(), "0");
    ini.SetValue(name.c_str(), "k", "0");
  }
  EXPECT_STREQ(handedOut, "1");
  ini.SetValue("A", "x", ini.GetValue("A", "x"));
  ini.Save();
  const std::string saved = ReadFile("client.ini");
  EXPECT_TRUE(saved.starts_with("[A]\nx=1\n0=0\n"));
  EXPECT_TRUE(saved.ends_with("[49]\nk=0\n"));
}

TEST(Ini, WithoutAFileIsEmptyAndStaysUsable) {
  const TempDir dir;
  std::filesystem::create_directory("client.ini");
  Ini ini("client.ini");
  EXPECT_EQ(ini.Load(), 0);
  EXPECT_EQ(ini.GetValue("NETWORK", "Host"), nullptr);
  EXPECT_EQ(ini.GetValue(nullptr, nullptr), nullptr);
  ini.SetValue("DISPLAY", "Width", "800");
  try {
    ini.Save();
    FAIL() << "a directory cannot be written";
  } catch (Error* error) {
    EXPECT_STREQ(error->GetModule(), "Ini");
    EXPECT_STREQ(error->GetMethod(), "WriteIni");
    EXPECT_STREQ(error->GetMessage(), "Unable to open ini file");
    delete error;
  }
  EXPECT_STREQ(ini.GetValue("DISPLAY", "Width"), "800");
}

}  // namespace
}  // namespace tolva::test
