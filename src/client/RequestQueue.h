#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "protocol/Packet.h"

namespace tolva {

// What the controller has to ask the server, kept until nothing that the player does or waits for can get behind it.
//
// The network thread pauses for 100 ms after each packet that it sends, and reads nothing meanwhile. 49 requests that
// it is given at once hold up the player's next step, and a quit, for five seconds; and since each is answered by two
// packets, of which the thread then reads only one between two pauses, the answer to a step waits behind those to the
// requests. So the next request goes when the thread has nothing to send, its last pause is over and nothing has come
// since for a while. A world that never falls silent delays it at most a quarter of a second.
//
// For the controller's thread. Times are those of GetTicks.
class RequestQueue {
 public:
  enum class Kind { Area, ServerVersion };
  // Makes the request when it is due; null when there is nothing to ask any more.
  using Make = std::function<std::unique_ptr<Packet>()>;

  // Behind those that wait already. Of more than 256 the oldest is dropped.
  void Add(Kind kind, Make make);
  // Drops all requests of the kind.
  void Discard(Kind kind);
  void Clear() { mWaiting.clear(); }

  // The server instance has been given a packet.
  void NoteSent(std::uint32_t now) { mBusyTick = now; }
  // Something has come from the server, or waits to be read.
  void NoteReceived(std::uint32_t now) { mReceivedTick = now; }
  // The next request, if it is due, else null. To be asked in each pass, with whether the server instance's mailbox is
  // empty.
  std::unique_ptr<Packet> TakeDue(std::uint32_t now, bool isMailboxEmpty);

 private:
  struct Request {
    Kind kind;
    Make make;
  };

  bool IsDue(std::uint32_t now) const;

  std::deque<Request> mWaiting;
  std::uint32_t mBusyTick = 0;  // when there was something in the server instance's mailbox last
  std::uint32_t mReceivedTick = 0;
  std::uint32_t mRequestTick = 0;
};

}  // namespace tolva
