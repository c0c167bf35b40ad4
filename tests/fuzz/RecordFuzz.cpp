// Decodes, prints, clones and rewrites what a peer may send. A rewritten record must read back as the same record, and
// the plain way must make the same of it; the sanitizers see what leaves its bounds.

#include <array>
#include <cstdlib>

#include "plain/PacketConverter.h"
#include "protocol/PacketPrinter.h"
#include "protocol/RecordDecoder.h"
#include "support/Records.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

// Gives some records the code of a class. The reader looks codes up without a comparison that would hint at them, so
// the fuzzer alone finds fewer than half of the classes.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  constexpr auto kCodes = []<typename... Packets>(tolva::TypeList<Packets...>) {
    return std::array{Packets::kCode...};
  }(tolva::AllPackets{});
  const std::size_t mutated = LLVMFuzzerMutate(data, size, maxSize);
  if (mutated >= 8 && seed % 4 == 0) tolva::StoreBig32(data + 4, kCodes[seed / 4 % kCodes.size()]);
  return mutated;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tolva;
  const std::string bytes(data, data + size);
  if (test::ReadingBy<PacketConverter>(bytes) != test::ReadingBy<plain::PacketConverter>(bytes)) std::abort();
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
