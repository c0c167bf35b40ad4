// Preloaded into a program that draws with SDL 1.2, this library writes a Frame for each frame to the file that
// TOLVA_FRAME_PROBE names, so that a program is measured as it is played, with no code of its own for it.
#include <cstddef>
#include <cstdlib>
#include <ctime>

#include <SDL.h>
#include <SDL_ttf.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include "frames/Frame.h"

namespace {

tolva::bench::Frame sFrame;

double Now(clockid_t clock = CLOCK_MONOTONIC) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double OwnCpu() { return Now(CLOCK_THREAD_CPUTIME_ID); }

bool IsMainThread() {
  thread_local const bool isMain = getpid() == gettid();
  return isMain;
}

int OpenOutput() {
  const char* path = std::getenv("TOLVA_FRAME_PROBE");
  return path == nullptr ? -1 : open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
}

// The function of that name that this library stands before.
template <typename Function>
Function* Next(Function&, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Some pixels around the player, but not the player: a character that stands may still be animated.
double SumView(const SDL_Surface& screen) {
  constexpr int kAcross = 150, kDown = 120, kPlayer = 60, kStride = 5;
  if (screen.pixels == nullptr || screen.w < 2 * kAcross || screen.h < 2 * kDown) return 0;
  Uint32 sum = 0;
  for (int y = -kDown; y < kDown; y += kStride) {
    const auto* row = static_cast<const Uint8*>(screen.pixels) + std::ptrdiff_t{screen.h / 2 + y} * screen.pitch;
    for (int x = -kAcross; x < kAcross; x += kStride) {
      if (x > -kPlayer && x < kPlayer) continue;
      sum = sum * 31 + row[std::ptrdiff_t{screen.w / 2 + x} * screen.format->BytesPerPixel];
    }
  }
  return sum;
}

}  // namespace

extern "C" {

void SDL_Delay(Uint32 ms) {
  static auto* const next = Next(SDL_Delay, "SDL_Delay");
  next(ms);
  if (!IsMainThread()) return;
  sFrame = {};
  sFrame.begin = Now();
  sFrame.workCpu = -OwnCpu();
}

int SDL_Flip(SDL_Surface* screen) {
  static auto* const next = Next(SDL_Flip, "SDL_Flip");
  static const int output = OpenOutput();
  sFrame.workCpu += OwnCpu();
  sFrame.view = SumView(*screen);
  const double cpu = OwnCpu();
  sFrame.flip = Now();
  const int result = next(screen);
  sFrame.flipCpu = OwnCpu() - cpu;
  sFrame.end = Now();
  // Whoever reads this may have gone; the program goes on.
  if (write(output, &sFrame, sizeof sFrame) < 0) return result;
  return result;
}

int SDL_SemWait(SDL_sem* semaphore) {
  static auto* const next = Next(SDL_SemWait, "SDL_SemWait");
  if (!IsMainThread()) return next(semaphore);
  const double before = Now();
  const int result = next(semaphore);
  sFrame.lockWait += Now() - before;
  return result;
}

SDL_Surface* IMG_LoadPNG_RW(SDL_RWops* stream) {
  static auto* const next = Next(IMG_LoadPNG_RW, "IMG_LoadPNG_RW");
  if (IsMainThread()) ++sFrame.pictures;
  return next(stream);
}

SDL_Surface* TTF_RenderText_Solid(TTF_Font* font, const char* text, SDL_Color color) {
  static auto* const next = Next(TTF_RenderText_Solid, "TTF_RenderText_Solid");
  if (IsMainThread()) ++sFrame.texts;
  return next(font, text, color);
}

}  // extern "C"
