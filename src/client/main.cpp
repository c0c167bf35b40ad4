#include <cstdio>

#include <SDL.h>  // may rename main for the platform
#include <unistd.h>

#include "client/ClientMain.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

int main(int argc, char* argv[]) {
  const int status = tolva::ClientMain(argc, argv);
  std::fflush(nullptr);
#if defined(__SANITIZE_ADDRESS__)
  __lsan_do_leak_check();
#endif
  _exit(status);
}
