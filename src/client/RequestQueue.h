#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "protocol/Packet.h"

namespace tolva {

// The controller's own requests to the server, which wait here so that they delay nothing that the player does or waits
// for.
//
// After each packet that the network thread sends it pauses for 100 ms and reads nothing. 49 requests sent at once
// would hold up the player's next step, or a quit, for five seconds. And as the server answers each request with two
// packets, of which the thread reads only one between two pauses, the answer to a step would wait behind those to the
// requests. So the next request is due when the thread has nothing to send, its last pause is over and nothing has come
// from the server for a while; at the latest a quarter of a second after the last request.
//
// For the controller's thread. Times are those of GetTicks.
class RequestQueue {
 public:
  enum class Kind { Area, ServerVersion };
  // Makes a request when it is due. Null when there is nothing to ask any more.
  using Make = std::function<std::unique_ptr<Packet>()>;

  // Appends a request. Drops the oldest of more than 256.
  void Add(Kind kind, Make make);
  // Drops all requests of the kind.
  void Discard(Kind kind);
  void Clear() { mWaiting.clear(); }

  // Call it when the server instance gets a packet to send.
  void NoteSent(std::uint32_t now) { mBusyTick = now; }
  // Call it when something has come from the server, or waits to be read.
  void NoteReceived(std::uint32_t now) { mReceivedTick = now; }
  // Takes the next request if it is due, else null. Call it in each pass, with the number of packets in the server
  // instance's mailbox.
  std::unique_ptr<Packet> TakeDue(std::uint32_t now, std::uint32_t unsentCount);

 private:
  struct Request {
    Kind kind;
    Make make;
  };

  bool IsDue(std::uint32_t now) const;

  std::deque<Request> mWaiting;
  std::uint32_t mBusyTick = 0;  // when the server instance last had something to send
  std::uint32_t mReceivedTick = 0;
  std::uint32_t mRequestTick = 0;
};

}  // namespace tolva
