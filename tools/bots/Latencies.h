#pragma once

#include <string>
#include <vector>

#include "server/common/ServerTime.h"

namespace tolva {

// Times from a request to its answer.
class Latencies {
 public:
  void Add(Duration latency) { mAll.push_back(latency); }
  std::size_t GetCount() const { return mAll.size(); }
  // Minimum, median, 95th percentile and maximum in milliseconds, as one line.
  std::string Describe() const;

 private:
  std::vector<Duration> mAll;
};

}  // namespace tolva
