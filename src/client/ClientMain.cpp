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

// Never destroyed, because the socket control's thread, which the controller owns, runs until the process ends. Kept
// here so that leak checkers find them.
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
    // The threads that did start run on and need their mailboxes, as after any other failure.
    throw new Error("Main", "main", "A thread could not be started");
  }
  sDisplay = new Display(&displayMailbox);
  Announce(controllerMailbox, displayMailbox);
  // The X library calls exit() when it loses the X server. This handler is registered last and so runs first: nothing
  // is cleaned up while threads still run.
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
    // The threads that run on still use their mailboxes.
    static Mailbox* sInUse[] = {controllerMailbox.release(), displayMailbox.release()};
    static_cast<void>(sInUse);
  }
  return result;
}

}  // namespace tolva
