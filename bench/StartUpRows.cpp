#include <algorithm>
#include <csignal>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include "Rows.h"
#include "frames/Frame.h"
#include "frames/Process.h"
#include "frames/XServer.h"
#include "harness/Table.h"
#include "sdl/Rect.h"

namespace tolva::bench {
namespace {

constexpr int kStarts = 20;
constexpr double kAim = 1.4;

double Now() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// Microseconds from the start of the program to the end of its first frame. In a UTF-8 locale, as on every desktop: the
// X library then reads a table of 10 ms in each process.
double TimeStart(const XServer& screen, const std::vector<std::string>& command) {
  Pipe frames;
  const double start = Now();
  const pid_t process = Start(command, {"DISPLAY=" + screen.GetName(), "SDL_VIDEODRIVER=x11", "SDL_AUDIODRIVER=dummy",
                                        "LC_ALL=C.UTF-8", std::string("LD_PRELOAD=") + TOLVA_BENCH_PROBE,
                                        "TOLVA_FRAME_PROBE=/dev/fd/" + std::to_string(frames.GetWriteEnd())});
  frames.CloseWriteEnd();
  Frame first;
  try {
    frames.Read(&first, sizeof first);
  } catch (...) {
    End(process, SIGKILL);
    throw;
  }
  End(process, SIGKILL);
  return (first.end - start) * 1e6;
}

}  // namespace

// The client of today has no plain way beside it: docs/performance.md has the figures of the one before.
void AddStartUpRows(Table& table) {
  const XServer screen;
  for (const Size& size : {Size{800, 600}, Size{1280, 1024}}) {
    const std::string width = std::to_string(size.width);
    const std::string height = std::to_string(size.height);
    std::ofstream("client.ini") << "[DISPLAY]\nWidth=" << width << "\nHeight=" << height << '\n';
    std::vector<double> ours;
    std::vector<double> bare;
    for (int i = 0; i < kStarts; ++i) {
      ours.push_back(TimeStart(screen, {TOLVA_BENCH_CLIENT}));
      bare.push_back(TimeStart(screen, {TOLVA_BENCH_BARE, width, height}));
    }
    // The least of each: whatever else runs can only add to a start.
    table.Note(
        {"Exec to first frame, " + width + "x" + height, {}, {}, "a bare SDL program, both the least of 20", {}, kAim},
        {*std::min_element(ours.begin(), ours.end()), 0}, nullptr, {*std::min_element(bare.begin(), bare.end()), 0});
  }
}

}  // namespace tolva::bench
