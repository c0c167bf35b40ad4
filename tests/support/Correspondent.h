#pragma once

#include <memory>
#include <vector>

#include "protocol/Packet.h"
#include "support/WaitUntil.h"
#include "threads/Mailbox.h"

namespace tolva::test {

// The other side of a thread object under test: owns the mailbox that the thread reads and the one that it reports to.
class Correspondent {
 public:
  Mailbox* GetOwn() { return &mOwn; }
  Mailbox* GetTheirs() { return &mTheirs; }
  // How many reports wait.
  std::uint32_t GetWaitingCount() { return mOwn.GetCount(); }

  // Gives the thread a packet, as its sender; mail from a stranger has no source.
  void Give(std::unique_ptr<Packet> packet) {
    packet->mObjSource = &mOwn;
    mTheirs.Put(packet.release());
  }
  void Give(const Packet& packet) { Give(std::unique_ptr<Packet>(packet.Clone())); }
  void GiveAsStranger(const Packet& packet) { mTheirs.Put(packet.Clone()); }

  // The next report, or null when none comes.
  std::unique_ptr<Packet> Next() {
    std::unique_ptr<Packet> packet;
    WaitUntil([&] { return (packet = mOwn.Get()) != nullptr; });
    return packet;
  }
  // The codes of the next so many reports; fewer when they do not come.
  std::vector<PacketCode> Next(std::size_t count) {
    std::vector<PacketCode> codes;
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
