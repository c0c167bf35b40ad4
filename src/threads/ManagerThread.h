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

// The base of the client's thread objects: a thread that reads one mailbox, sends packets to others, and carries its
// own error handler, log writer and packet printer. Everything but construction happens on the object's own thread.
class ManagerThread : public Thread {
 public:
  // `mailbox` is read by this thread; it belongs to whoever made it and must outlive the thread.
  explicit ManagerThread(Mailbox* mailbox) : mMailbox(mailbox) {}

  // Handles the mail of one pass: at most one packet.
  virtual void HandleMyMailbox() {}

  // The oldest packet of the own mailbox, which the caller owns, or null.
  Packet* FetchMail();
  // Stamps the packet with the own mailbox as its source and puts it into `target`. False when there is no target or
  // its lock fails: the packet stays the caller's.
  bool SendMail(Mailbox* target, Packet* packet);

 protected:
  // Sends, and deletes what cannot be sent.
  void Send(Mailbox* target, std::unique_ptr<Packet> packet);

  // The thread loop: while the running flag is set, pauses and runs `pass`. An error ends its pass, never the loop.
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
  // Logs "`what`: " and the packet's text form as packet traffic.
  void LogTraffic(const char* what, const Packet& packet);

  Mailbox* const mMailbox;
  ErrHandler mErrHandler;
  InfoHandler mInfoHandler;
  PacketPrinter mPacketPrinter;
  bool mRunning = true;
};

}  // namespace tolva
