// Decodes, prints, clones and rewrites what a peer may send. A rewritten record must read back as the same record; the
// sanitizers see what leaves its bounds.

#include <cstdlib>

#include "protocol/PacketPrinter.h"
#include "protocol/RecordDecoder.h"
#include "support/Records.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolva;
  static PacketPrinter printer;
  RecordDecoder decoder;
  const auto room = decoder.Room();
  const std::size_t taken = std::min(size, room.size());
  std::copy_n(data, taken, room.begin());
  decoder.Commit(taken);
  for (auto result = decoder.Next(); result.outcome == RecordDecoder::Outcome::Decoded; result = decoder.Next()) {
    printer.Print(*result.packet);
    const std::unique_ptr<Packet> clone(result.packet->Clone());
    if (!IsGenuine(*clone)) continue;
    const std::string first = test::Record(*clone);
    const test::ReadRecord again(first);
    if (again.consumed != first.size() || test::Record(*again.packet) != first) std::abort();
  }
  return 0;
}
