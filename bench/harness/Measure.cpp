#include "harness/Measure.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <ctime>
#include <memory>
#include <utility>

namespace {

std::atomic<std::size_t> sAllocations{0};

}  // namespace

// Every library of the process calls these in place of the C library's own.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) {
  sAllocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  sAllocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
  sAllocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(block, size);
}
}

namespace tolva::bench {
namespace {

constexpr double kSampleMicroseconds = 4000;

double GetCpuMicroseconds() {
  std::timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

Cost MeasureMany(const std::function<void()>& call, std::size_t times) {
  const std::size_t allocations = sAllocations;
  const double start = GetCpuMicroseconds();
  for (std::size_t i = 0; i < times; ++i) call();
  const double end = GetCpuMicroseconds();
  const auto count = static_cast<double>(times);
  return {(end - start) / count, static_cast<double>(sAllocations - allocations) / count};
}

}  // namespace

Cost Measure(const std::function<void()>& call) { return MeasureMany(call, 1); }

Sample PerCall(std::function<void()> call) {
  return [call = std::move(call), times = std::size_t{0}]() mutable {
    while (times == 0) {
      std::size_t tried = 1;
      double microseconds = 0;
      while ((microseconds = MeasureMany(call, tried).microseconds * static_cast<double>(tried)) <
             kSampleMicroseconds / 4) {
        tried *= 2;
      }
      times = std::max<std::size_t>(
          1, static_cast<std::size_t>(kSampleMicroseconds / microseconds * static_cast<double>(tried)));
    }
    return MeasureMany(call, times);
  };
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

CopyRing::CopyRing(std::size_t bytes, std::size_t ringBytes)
    : mBuffers(2 * std::max<std::size_t>(1, ringBytes / (2 * bytes)), std::vector<unsigned char>(bytes, 1)) {}

void CopyRing::operator()() {
  std::vector<unsigned char>& from = mBuffers[mNext];
  std::memcpy(mBuffers[mNext + 1].data(), from.data(), from.size());
  mNext = (mNext + 2) % mBuffers.size();
}

}  // namespace tolva::bench
