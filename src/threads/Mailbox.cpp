#include "threads/Mailbox.h"

#include <utility>

#include "foundation/Guard.h"

namespace tolva {

bool Mailbox::Put(Packet* packet) {
  return Guard("Mailbox", "Put", [&] {
    const SemaphoreLock lock(mSemaphore);
    if (!lock.IsHeld()) return false;
    mQueue.emplace_back(packet);
    return true;
  });
}

std::unique_ptr<Packet> Mailbox::Get() {
  return Guard("Mailbox", "Get", [&]() -> std::unique_ptr<Packet> {
    const SemaphoreLock lock(mSemaphore);
    if (!lock.IsHeld() || mQueue.empty()) return nullptr;
    std::unique_ptr<Packet> packet = std::move(mQueue.front());
    mQueue.pop_front();
    return packet;
  });
}

std::uint32_t Mailbox::GetCount() {
  const SemaphoreLock lock(mSemaphore);
  return lock.IsHeld() ? static_cast<std::uint32_t>(mQueue.size()) : 0;
}

}  // namespace tolva
