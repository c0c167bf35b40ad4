#include <gtest/gtest.h>

#include "server/ChatText.h"
#include "server/NamePolicy.h"

namespace tolva {
namespace {

TEST(NamePolicy, LetsPeopleBearOrdinaryNames) {
  for (const char* name : {"Anna", "a", "Mad Hatter", "J\xF6rg", "50%", "observer", "-=x=-", "sixteen letters!"})
    EXPECT_EQ(RefuseName(name), "") << name;
}

TEST(NamePolicy, TellsWhatIsWrongWithAName) {
  const struct {
    const char* name;
    const char* advice;
  } cases[] = {
      {"", "type a name"},
      {"   ", "type a name"},
      {"seventeen letters", "at most 16"},
      {" Anna", "around the name"},
      {"Anna\xA0", "around the name"},
      {"An  na", "single blanks"},
      {"An\xA0na", "single blanks"},
      {"An\nna", "can be seen"},
      {"Anna\x7F", "can be seen"},
      {"An\xADna", "can be seen"},
      {"[Anna]", "brackets"},
      {"x] hi [y", "brackets"},
      {"(and 9 more)", "brackets"},
      {"***", "asterisks"},
      {"*** Anna", "asterisks"},
      {"Server", "belongs to the"},
      {"sERVER", "belongs to the"},
      {"-Server-", "belongs to the"},
      {"S.e.r.v.e.r", "belongs to"},
      {"*** ", "around the name"},
      {"Ser ver", "belongs to the"},
  };
  for (const auto& [name, advice] : cases)
    EXPECT_NE(RefuseName(name).find(advice), std::string::npos) << Quote(name) << " got: " << RefuseName(name);
}

TEST(ChatText, LetsNothingForgeALogLine) {
  EXPECT_EQ(Quote("a\n2026 \"x\" \\ \x1B[2J\xFC"), "\"a\\x0A2026 \\\"x\\\" \\\\ \\x1B[2J\\xFC\"");
  EXPECT_EQ(Quote("abcdef", 3), "\"abc\"...");
}

}  // namespace
}  // namespace tolva
