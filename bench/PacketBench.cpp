#include <benchmark/benchmark.h>

#include "protocol/PacketPrinter.h"
#include "support/Records.h"
#include "threads/Mailbox.h"

namespace tolva {
namespace {

template <typename T>
std::unique_ptr<T> Sample() {
  auto packet = std::make_unique<T>();
  test::FillPacket(*packet, 1);
  return packet;
}

template <typename T>
void PrintPacket(benchmark::State& state) {
  const auto packet = Sample<T>();
  PacketPrinter printer;
  for (auto _ : state) benchmark::DoNotOptimize(printer.Print(*packet));
}
BENCHMARK_TEMPLATE(PrintPacket, PacketMove);
BENCHMARK_TEMPLATE(PrintPacket, PacketChatMsg);

void MailboxPutGet(benchmark::State& state) {
  Mailbox mailbox;
  PacketQuit packet;
  for (auto _ : state) {
    mailbox.Put(&packet);
    benchmark::DoNotOptimize(mailbox.Get().release());
  }
}
BENCHMARK(MailboxPutGet);

}  // namespace
}  // namespace tolva
