#include <algorithm>
#include <cstdlib>
#include <deque>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "foundation/Guard.h"
#include "foundation/LogRateLimiter.h"
#include "foundation/Ticks.h"
#include "support/TempDir.h"

namespace tolva::test {
namespace {

// The lines of the log without their ticks.
std::vector<std::string> LogLines() {
  std::istringstream log(ReadFile("log.clf"));
  std::vector<std::string> lines;
  for (std::string line; std::getline(log, line);) {
    lines.push_back(line.substr(std::min(line.size(), line.find(' '))));
  }
  return lines;
}

TEST(Log, HoldsTheLastRunOnly) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // in a new process, which has no log writer yet
  const TempDir dir;
  const auto run = [] {
    WriteFile("log.clf", "the previous run\n");
    InfoHandler().HandleInfo(new Info("one", InfoLevel::Progress));
    InfoHandler().HandleInfo(new Info("two", InfoLevel::Progress));
    std::_Exit(LogLines().size() == 2 ? 0 : 1);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(Log, HoldsFailuresErrorsAndProgressCutToTheirFields) {
  const TempDir dir;
  InfoHandler handler;
  handler.SetModuleName("ClientMain");
  for (std::uint32_t level = 0; level <= 5; ++level) handler.HandleInfo(new Info("100%s", InfoLevel{level}));
  handler.SetModuleName(std::string(25, 'm').c_str());
  handler.HandleInfo(new Info(std::string(300, 't').c_str(), InfoLevel::Progress));
  const std::string rest = " ClientMain            100%s";
  const std::string cut = " 004 " + std::string(21, 'm') + " " + std::string(255, 't');
  EXPECT_EQ(LogLines(), (std::vector<std::string>{" 001" + rest, " 002" + rest, " 004" + rest, cut}));
}

// A loop fails every 5 ms for an hour, on a clock that the loop advances.
TEST(LogRateLimiter, LimitsTheLinesOfASecondAndOfARun) {
  const TempDir dir;
  constexpr int kPasses = 3600 * 200;
  static std::uint32_t sNow;
  sNow = 0xFFFFFFFF - 5000;  // wraps around during the test
  SetTickSource([] { return sNow; });
  LogRateLimiter limiter;
  InfoHandler handler;
  std::deque<std::uint32_t> admitted;
  std::size_t count = 0, maxPerSecond = 0;
  for (int pass = 0; pass < kPasses; ++pass, sNow += 5) {
    if (!limiter.Admit(handler)) continue;
    ++count;
    admitted.push_back(sNow);
    while (sNow - admitted.front() >= 1000) admitted.pop_front();
    maxPerSecond = std::max(maxPerSecond, admitted.size());
  }
  EXPECT_EQ(maxPerSecond, 100u);
  EXPECT_EQ(count, 10'000u);
  EXPECT_EQ(LogLines().size(), 1u) << "one line says that lines are missing";

  ErrHandler errors;
  for (int pass = 0; pass < kPasses; ++pass, sNow += 5) errors.HandleError(new Error("Display", "Blit"));
  EXPECT_EQ(LogLines().size(), 1u + 2 * 10'000 + 1) << "each error has an empty line after it";
  SetTickSource(nullptr);
}

TEST(Errors, NameTheInnermostOperationThatSawTheFailure) {
  const TempDir dir;
  ErrHandler handler;
  const auto reportFrom = [&](auto&& failure) {
    return Report(handler, "Outer", "Run", [&] { Guard("Inner", "Step", failure); });
  };
  EXPECT_TRUE(reportFrom([] {}));
  EXPECT_FALSE(reportFrom([] { throw new Error("Ini", std::string(600, 'x').c_str(), "secret"); }));
  EXPECT_FALSE(reportFrom([] { throw std::runtime_error("foreign"); }));
  EXPECT_FALSE(Report(handler, "Outer", "Run", [] { throw 7; }));

  const auto lines = LogLines();
  ASSERT_EQ(lines.size(), 6u);  // each error's line ends in a line feed of its own
  const std::string places[] = {"Ini - Method " + std::string(127, 'x'), "Inner - Method Step", "Outer - Method Run"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_TRUE(lines[2 * i].starts_with(" 002 ### ERROR ###         At tick ")) << lines[2 * i];
    EXPECT_TRUE(lines[2 * i].ends_with(" in Module " + places[i])) << lines[2 * i];
    EXPECT_EQ(lines[2 * i + 1], "");
  }
}

}  // namespace
}  // namespace tolva::test
