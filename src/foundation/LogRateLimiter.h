#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace tolva {

class InfoHandler;

// A rate limiter for log lines whose cause a server can repeat at will: at most 100 in any second and 10,000 in a run.
// Lines beyond that are dropped, and one line a run says so. Any thread may call it.
class LogRateLimiter {
 public:
  // Whether the line may be written now; counts it if so. `log` takes the line that says that lines are missing.
  bool Admit(InfoHandler& log);

 private:
  bool HasRoom(std::uint32_t now) const;

  static constexpr std::size_t kMaxLinesPerSecond = 100;
  static constexpr std::size_t kMaxLinesPerRun = 10'000;

  std::mutex mMutex;
  std::array<std::uint32_t, kMaxLinesPerSecond> mTicks = {};  // ring buffer of when the newest lines were admitted
  std::size_t mCount = 0;
  bool mHasReported = false;
};

}  // namespace tolva
