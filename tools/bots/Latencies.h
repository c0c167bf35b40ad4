#pragma once

#include <string>
#include <vector>

#include "server/ServerTime.h"

namespace tolva {

// Times from a question to its answer.
class Latencies {
 public:
  void Add(Duration latency) { mAll.push_back(latency); }
  std::size_t GetCount() const { return mAll.size(); }
  // Smallest, median, 95 % and largest in milliseconds, as one line.
  std::string Describe() const;

 private:
  std::vector<Duration> mAll;
};

}  // namespace tolva
