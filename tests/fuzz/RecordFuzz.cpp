// Whatever bytes a peer sends, cutting, printing, cloning and rewriting them stays within bounds, and what was
// rewritten reads back as the same record.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "protocol/PacketPrinter.h"
#include "protocol/RecordCutter.h"
#include "support/PacketSamples.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolva;
  static PacketPrinter printer;
  RecordCutter cutter;
  const auto room = cutter.Room();
  const std::size_t taken = std::min(size, room.size());
  std::copy_n(data, taken, room.begin());
  cutter.Commit(taken);
  for (RecordCutter::Result result = cutter.Next(); result.outcome == RecordCutter::Outcome::Cut;
       result = cutter.Next()) {
    printer.Print(*result.packet);
    const std::unique_ptr<Packet> clone(result.packet->Clone());
    const test::WireRecord first(*clone);
    const test::ReadResult again = test::ReadRecord(first.bytes);
    const bool plain = typeid(*clone) == typeid(Packet);
    if (!plain && (again.consumed != first.bytes.size() || test::WireRecord(*again.packet).bytes != first.bytes))
      std::abort();
  }
  return 0;
}
