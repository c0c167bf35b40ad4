#pragma once

#include <memory>
#include <vector>

#include "protocol/Packet.h"
#include "support/WaitUntil.h"
#include "threads/Mailbox.h"

namespace tolva::test {

using Codes = std::vector<PacketCode>;

// The other side of a thread object under test: owns the thread's mailbox and the one that the thread sends to.
class Correspondent {
 public:
  Mailbox* GetOwn() { return &mOwn; }
  Mailbox* GetTheirs() { return &mTheirs; }
  // The number of packets from the thread that wait.
  std::uint32_t GetWaitingCount() { return mOwn.GetCount(); }

  // Sends the thread a packet; one from a stranger has no source.
  void Give(std::unique_ptr<Packet> packet) {
    packet->mObjSource = &mOwn;
    mTheirs.Put(packet.release());
  }
  void Give(const Packet& packet) { Give(std::unique_ptr<Packet>(packet.Clone())); }
  void GiveAsStranger(const Packet& packet) { mTheirs.Put(packet.Clone()); }

  // The next packet from the thread, or null if none comes.
  std::unique_ptr<Packet> Next() {
    std::unique_ptr<Packet> packet;
    WaitUntil([&] { return (packet = mOwn.Get()) != nullptr; });
    return packet;
  }
  // The codes of the next `count` packets from the thread; fewer if they do not come.
  Codes Next(std::size_t count) {
    Codes codes;
    while (codes.size() < count) {
      const auto packet = Next();
      if (packet == nullptr) break;
      codes.push_back(packet->mEnmCode);
    }
    return codes;
  }

 private:
  Mailbox mOwn, mTheirs;
};

}  // namespace tolva::test
