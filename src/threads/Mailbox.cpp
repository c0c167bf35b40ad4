#include "threads/Mailbox.h"

#include "foundation/Guard.h"
#include "protocol/Packet.h"

namespace tolva {

Mailbox::~Mailbox() {
  for (const Packet* packet : mQueue) delete packet;
}

bool Mailbox::Put(Packet* packet) {
  return Guard("Mailbox", "Put", [&] {
    const SemaphoreLock lock(mSemaphore);
    if (!lock.IsHeld()) return false;
    mQueue.push_back(packet);
    ++mCount;
    return true;
  });
}

Packet* Mailbox::Get() {
  return Guard("Mailbox", "Get", [&]() -> Packet* {
    const SemaphoreLock lock(mSemaphore);
    if (!lock.IsHeld() || mCount == 0) return nullptr;
    Packet* packet = mQueue.front();
    mQueue.pop_front();
    --mCount;
    return packet;
  });
}

std::uint32_t Mailbox::GetCount() {
  const SemaphoreLock lock(mSemaphore);
  return lock.IsHeld() ? mCount : 0;
}

}  // namespace tolva
