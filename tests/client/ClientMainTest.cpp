#include <SDL.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "client/ClientMain.h"
#include "support/TempDir.h"

namespace {
bool gFailInit = false;
}

// Stands in front of SDL's own.
extern "C" int SDL_Init(Uint32 flags) {
  const auto real = reinterpret_cast<int (*)(Uint32)>(::dlsym(RTLD_NEXT, "SDL_Init"));
  return gFailInit ? -1 : real(flags);
}

namespace tolva::test {
namespace {

TEST(ClientMainTest, WithoutSdlItSaysSoAndStartsNothing) {
  TempDir dir;
  gFailInit = true;
  EXPECT_EQ(ClientMain(0, nullptr), -1);
  const std::string log = ReadFile("log.clf");
  EXPECT_EQ(log.substr(10), " 001 ClientMain            Failed to initialize\n");
}

}  // namespace
}  // namespace tolva::test
