#pragma once

#include <cstdint>
#include <deque>

#include "threads/Semaphore.h"

namespace tolva {

struct Packet;

// So many packets waiting mean that the reader does not keep up: whoever feeds the mailbox from the network side then
// stops reading its own source. A fast server so costs bounded memory, and what the player does waits behind few
// packets.
constexpr std::uint32_t kMailboxHighWater = 64;

// A first-in, first-out queue of packets. Any thread may put; one thread reads. Owns what is queued, and deletes what
// is left when it is destroyed.
class Mailbox {
 public:
  Mailbox() = default;
  virtual ~Mailbox();

  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  // Appends the packet and owns it from then on. False when the lock fails: the packet stays the caller's.
  bool Put(Packet* packet);
  // The oldest packet, which the caller owns, or null. Never waits for mail.
  Packet* Get();
  // How many packets wait.
  std::uint32_t GetCount();

 private:
  std::deque<Packet*> mQueue;
  std::uint32_t mCount = 0;
  Semaphore mSemaphore;
};

}  // namespace tolva
