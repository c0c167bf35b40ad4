#include "client/ClientMain.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <SDL.h>
#include <unistd.h>

#include "client/ClientBase.h"
#include "display/Display.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "protocol/InternPackets.h"

namespace tolva {

namespace {

// Nobody destroys these: behind the controller the socket control's thread goes on until the process ends. They are
// kept where a leak checker finds them.
ClientBase* sController = nullptr;
Display* sDisplay = nullptr;

void Announce(Mailbox& about, Mailbox& to) {
  auto announcement = std::make_unique<PacketInternCentralMailbox>(&about);
  if (to.Put(announcement.get())) static_cast<void>(announcement.release());
}

int RunClient(InfoHandler& infoHandler, Mailbox& controllerMailbox, Mailbox& displayMailbox) {
  const auto log = [&](const char* text, InfoLevel level) { infoHandler.HandleInfo(new Info(text, level)); };
  infoHandler.SetModuleName("ClientMain");
  if (SDL_Init(0) == -1) {
    log("Failed to initialize", InfoLevel::Failure);
    return -1;
  }
  log("Initialized", InfoLevel::Progress);
  Announce(displayMailbox, controllerMailbox);
  sController = new ClientBase(&controllerMailbox);
  if (!sController->HasStarted()) {
    std::fputs("Tolva could not start all of its threads. More is in log.clf in this directory.\n", stderr);
    // Those that were started go on and need their mailboxes, as after any other failure.
    throw new Error("Main", "main", "A thread could not be started");
  }
  sDisplay = new Display(&displayMailbox);
  Announce(controllerMailbox, displayMailbox);
  // The X library calls exit() when the X server goes away. Registered last, this runs first, and nothing is cleaned up
  // under the threads.
  std::atexit([] { _exit(EXIT_FAILURE); });
  sDisplay->Run();
  sController->WaitThread(nullptr);
  SDL_Quit();
  log("Terminated", InfoLevel::Progress);
  return sDisplay->HasFailed() ? 1 : 0;
}

}  // namespace

int ClientMain(int, char*[]) {
  // Every log line carries a tick, so the clock is set before the first writer exists.
  SetTickSource(SDL_GetTicks);
  ErrHandler errHandler;
  InfoHandler infoHandler;
  auto controllerMailbox = std::make_unique<Mailbox>();
  auto displayMailbox = std::make_unique<Mailbox>();
  int result = -1;
  const bool hasEnded =
      Report(errHandler, "Main", "main", [&] { result = RunClient(infoHandler, *controllerMailbox, *displayMailbox); });
  if (!hasEnded) {
    // The threads still read and fill their mailboxes.
    static Mailbox* sInUse[] = {controllerMailbox.release(), displayMailbox.release()};
    static_cast<void>(sInUse);
  }
  return result;
}

}  // namespace tolva
