#include "tools/bots/Latencies.h"

#include <algorithm>
#include <cstdio>

namespace tolva {

std::string Latencies::Describe() const {
  if (mAll.empty()) return "none";
  std::vector<Duration> sorted = mAll;
  std::sort(sorted.begin(), sorted.end());
  const auto at = [&](double part) {
    const auto index = static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1));
    return std::chrono::duration<double, std::milli>(sorted[index]).count();
  };
  char line[128];
  std::snprintf(line, sizeof line, "min %.2f ms, median %.2f ms, 95%% %.2f ms, max %.2f ms", at(0), at(0.5), at(0.95),
                at(1));
  return line;
}

}  // namespace tolva
