#pragma once

#include <cstdint>
#include <deque>
#include <memory>

#include "protocol/Packet.h"
#include "threads/Semaphore.h"

namespace tolva {

// Back-pressure: with this many packets waiting, the reader does not keep up, and whoever feeds the mailbox from the
// network stops reading its own source. So a fast server costs bounded memory, and the player's own packets wait behind
// few others.
constexpr std::uint32_t kMailboxHighWater = 64;

// Queues packets for one thread, which takes them out in the order in which any threads put them in. Owns what it
// holds.
class Mailbox {
 public:
  Mailbox() = default;
  virtual ~Mailbox() = default;

  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  // Appends the packet and takes ownership of it. False when the lock fails: the caller then still owns it.
  bool Put(Packet* packet);
  // Takes the oldest packet out. Null when there is none; never waits for mail.
  std::unique_ptr<Packet> Get();
  // The number of packets waiting.
  std::uint32_t GetCount();

 private:
  std::deque<std::unique_ptr<Packet>> mQueue;
  Semaphore mSemaphore;
};

}  // namespace tolva
