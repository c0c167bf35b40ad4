#include <cstdlib>

// Tests need neither a screen nor a sound card, also when a program is started by hand. (CTest's own way to set two
// variables fails here: gtest_discover_tests splits them.)
namespace {

[[maybe_unused]] const bool kHeadless = [] {
  ::setenv("SDL_VIDEODRIVER", "dummy", 1);
  ::setenv("SDL_AUDIODRIVER", "dummy", 1);
  return true;
}();

}  // namespace
