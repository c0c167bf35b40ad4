#pragma once

#include <cstdint>
#include <memory>

#include <SDL.h>

#include "foundation/ErrHandler.h"
#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "protocol/Packet.h"
#include "protocol/PacketPrinter.h"
#include "threads/Mailbox.h"
#include "threads/Thread.h"

namespace tolva {

// Base class of the client's threads. To a Thread it adds what each of them needs: a mailbox of its own, operations
// that send and log packets, and a loop that survives errors. After construction, only the thread itself uses the
// object.
class ManagerThread : public Thread {
 public:
  // Borrows `mailbox`, from which this thread takes its mail; it must outlive the thread.
  explicit ManagerThread(Mailbox* mailbox) : mMailbox(mailbox) {}

  // Called in each pass of the loop: handles at most one packet.
  virtual void HandleMyMailbox() {}

  // Takes the oldest packet out of this thread's mailbox. Null when there is none.
  std::unique_ptr<Packet> FetchMail();
  // Makes this thread's mailbox the packet's source and puts it into `target`, which owns it from then on. False when
  // there is no target or its lock fails: the caller then still owns the packet.
  bool SendMail(Mailbox* target, Packet* packet);

 protected:
  // Sends the packet, or deletes it if it cannot be sent.
  void Send(Mailbox* target, std::unique_ptr<Packet> packet);

  // The thread's loop: pauses, then runs `pass`, until the running flag is cleared. An error ends its pass, not the
  // loop.
  template <typename Pass>
  void RunPasses(const char* module, std::uint32_t pauseMs, Pass&& pass) {
    while (mRunning) {
      Report(mErrHandler, module, "Run", [&] {
        SDL_Delay(pauseMs);
        pass();
      });
    }
  }

  void Log(InfoLevel level, const char* text) { mInfoHandler.HandleInfo(new Info(text, level)); }
  // Logs `what`, a colon and the packet's text form as packet traffic.
  void LogTraffic(const char* what, const Packet& packet);

  Mailbox* const mMailbox;
  ErrHandler mErrHandler;
  InfoHandler mInfoHandler;
  PacketPrinter mPacketPrinter;
  bool mRunning = true;
};

}  // namespace tolva
