#include <chrono>
#include <thread>

#include <SDL.h>
#include <SDL_thread.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "client/ClientMain.h"
#include "support/TempDir.h"
#include "threads/Thread.h"

namespace {
bool gFailInit = false;
int gStartsUntilRefusal = -1;  // never
}  // namespace

// Stands in front of SDL's own.
extern "C" int SDL_Init(Uint32 flags) {
  const auto real = reinterpret_cast<int (*)(Uint32)>(::dlsym(RTLD_NEXT, "SDL_Init"));
  return gFailInit ? -1 : real(flags);
}

// Refuses a thread of ours, as a system without resources does; the libraries' own are left alone.
extern "C" SDL_Thread* SDL_CreateThread(int (*body)(void*), void* argument) {
  const auto real = reinterpret_cast<decltype(&SDL_CreateThread)>(::dlsym(RTLD_NEXT, "SDL_CreateThread"));
  const bool isRefused = body == &tolva::Thread::Invoke && gStartsUntilRefusal-- == 0;
  return isRefused ? nullptr : real(body, argument);
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

// Each run is a process of its own: the threads that did start go on until it ends.
TEST(ClientMainTest, WithoutOneOfItsThreadsItSaysSoAndFails) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  const auto run = [](int started) {
    const TempDir dir;
    std::thread([] {
      std::this_thread::sleep_for(std::chrono::seconds(10));
      ::_exit(98);  // the deadline of one that waits for ever; SDL ignores alarms
    }).detach();
    gStartsUntilRefusal = started;
    const int status = ClientMain(0, nullptr);
    const bool isLogged = ReadFile("log.clf").find("in Module Thread - Method Start\n") != std::string::npos;
    std::error_code busy;  // while another thread writes its first lines
    const auto path = std::filesystem::current_path();
    do std::filesystem::remove_all(path, busy);
    while (busy);
    ::_exit(isLogged ? status : 0);
  };
  for (const int started : {0, 1, 2, 3}) {  // socket control, server instance, sound manager, controller
    EXPECT_EXIT(run(started), testing::ExitedWithCode(255), "^Tolva could not start all of its threads[^\n]*\n$")
        << started;
  }
}

}  // namespace
}  // namespace tolva::test
