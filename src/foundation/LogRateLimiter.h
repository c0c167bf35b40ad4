#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace tolva {

class InfoHandler;

// Bounds how many lines one cause adds to the log, for causes that a server can repeat at will: 100 in any second and
// 10,000 in a run. What is over is dropped, and one line a run says so. Any thread may ask.
class LogRateLimiter {
 public:
  // Whether the line may be written now; counts it if so. `log` gets the line that lines are missing.
  bool Admit(InfoHandler& log);

 private:
  bool HasRoom(std::uint32_t now) const;

  static constexpr std::size_t kLinesInASecond = 100;

  std::mutex mMutex;
  std::array<std::uint32_t, kLinesInASecond> mTicks = {};  // of the newest lines, each at its number modulo 100
  std::size_t mCount = 0;
  bool mHasToldSo = false;
};

}  // namespace tolva
