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
void WriteRecord(benchmark::State& state) {
  const auto packet = Sample<T>();
  std::vector<std::uint8_t> record(kRecordBufferSize);
  const PacketConverter converter;
  for (auto _ : state) benchmark::DoNotOptimize(converter.WriteBuffer(record.data(), *packet));
}
BENCHMARK_TEMPLATE(WriteRecord, PacketMove);
BENCHMARK_TEMPLATE(WriteRecord, PacketChatMsg);
BENCHMARK_TEMPLATE(WriteRecord, PacketAreaGround);

template <typename T>
void ReadRecord(benchmark::State& state) {
  const std::string record = test::Record(*Sample<T>());
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(record.data());
  const PacketConverter converter;
  for (auto _ : state) {
    std::uint32_t consumed = 0;
    const auto packet = converter.ReadBuffer(bytes, static_cast<std::uint32_t>(record.size()), consumed);
    benchmark::DoNotOptimize(packet.get());
  }
}
BENCHMARK_TEMPLATE(ReadRecord, PacketMove);
BENCHMARK_TEMPLATE(ReadRecord, PacketChatMsg);
BENCHMARK_TEMPLATE(ReadRecord, PacketAreaGround);

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
