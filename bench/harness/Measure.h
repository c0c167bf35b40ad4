#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace tolva::bench {

// What one call of a piece of work takes.
struct Cost {
  double microseconds = 0;  // of this thread's CPU time, so that other programs on the machine count less
  double allocations = 0;   // calls of malloc and its kin by any library, operator new included
};

// Takes one measurement.
using Sample = std::function<Cost()>;

// The cost of this one call.
Cost Measure(const std::function<void()>& call);

// A sample that calls `call` as often as makes it last some milliseconds, and gives the mean.
Sample PerCall(std::function<void()> call);

// The middle value; of an even number the upper one. Needs at least one value.
double Median(std::vector<double> values);

// The yardstick of frames and pictures: a memcpy between buffers that take turns. Together they are larger than what a
// core keeps close, as are the pictures and the window of a frame.
class CopyRing {
 public:
  static constexpr std::size_t kFrameRing = std::size_t{24} << 20;

  // Copies `bytes` with each call; all buffers together have at least `ringBytes`.
  explicit CopyRing(std::size_t bytes, std::size_t ringBytes = kFrameRing);

  void operator()();

 private:
  std::vector<std::vector<unsigned char>> mBuffers;  // pairs of a source and a target
  std::size_t mNext = 0;
};

}  // namespace tolva::bench
