#include <cstdlib>

#include <SDL.h>

// Tests need neither a screen nor a sound card, also when a program is started by hand. (CTest's own way to set two
// variables fails here: gtest_discover_tests splits them.)
namespace {

[[maybe_unused]] const bool kHeadless = [] {
  ::setenv("SDL_VIDEODRIVER", "dummy", 1);
  ::setenv("SDL_AUDIODRIVER", "dummy", 1);
  // As the client does first of all: SDL's clock starts here. Started later, by the thread that opens the audio device,
  // it would jump while others measure.
  return SDL_Init(0) == 0;
}();

}  // namespace
