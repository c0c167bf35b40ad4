#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "Rows.h"
#include "harness/Table.h"
#include "plain/PacketConverter.h"
#include "protocol/PacketConverter.h"
#include "protocol/PacketList.h"
#include "protocol/WireFormat.h"
#include "records.pb.h"

namespace tolva::bench {
namespace {

using Record = std::array<std::uint8_t, kRecordBufferSize>;

// Keeps the compiler from leaving out work whose outcome nobody uses.
void Use(const void* outcome) { asm volatile("" : : "g"(outcome) : "memory"); }

// Writes the packet, reads a new one from its record and deletes that.
template <typename Converter>
Sample WriteAndRead(const Packet& packet) {
  return PerCall([&packet, record = std::make_shared<Record>()] {
    const Converter converter;
    const std::uint32_t size = converter.WriteBuffer(record->data(), packet);
    Use(record->data());
    std::uint32_t consumed = 0;
    Use(converter.ReadBuffer(record->data(), size, consumed).get());
  });
}

// The same with a message of protobuf.
template <typename Message>
Sample WriteAndParse(const Message& message) {
  return PerCall([message, record = std::make_shared<Record>()] {
    const std::size_t size = message.ByteSizeLong();
    message.SerializeWithCachedSizesToArray(record->data());
    Use(record->data());
    const auto read = std::make_unique<Message>();
    read->ParseFromArray(record->data(), static_cast<int>(size));
    Use(read.get());
  });
}

Sample CopyInAndOut(const Packet& packet) {
  const auto records = std::make_shared<std::array<Record, 3>>();
  const std::size_t size = PacketConverter().WriteBuffer((*records)[0].data(), packet);
  return PerCall([records, size] {
    for (int copy = 1; copy < 3; ++copy) {
      std::memcpy((*records)[copy].data(), (*records)[copy - 1].data(), size);
      Use((*records)[copy].data());
    }
  });
}

void AddRow(Table& table, const std::string& what, const Packet& packet, const std::string& yardstick,
            const Sample& yard, double aim) {
  table.Run({"Write and read " + what, WriteAndRead<PacketConverter>(packet),
             WriteAndRead<plain::PacketConverter>(packet), yardstick, yard, aim});
}

}  // namespace

void AddCodecRows(Table& table) {
  PacketAreaGround ground;
  for (std::size_t i = 0; i < ground.mUintGround.size(); ++i) {
    ground.mUintGround[i] = static_cast<std::uint32_t>(100000 + 16 * (i % 7));
    ground.mBySmoothness[i] = static_cast<std::uint8_t>(i % 16);
  }
  AddRow(table, "PacketAreaGround", ground, "memcpy of the record in and out", CopyInAndOut(ground), 3);

  const std::string protobuf = "protobuf, new message";
  const PacketDarkness darkness(70);
  records::Darkness otherDarkness;
  otherDarkness.set_darkness(darkness.mByDarkness);
  AddRow(table, "PacketDarkness", darkness, protobuf, WriteAndParse(otherDarkness), 2.0 / 3);

  const PacketInternPing ping(123456789);
  records::Ping otherPing;
  otherPing.set_tick(ping.mUintTick);
  AddRow(table, "PacketInternPing", ping, protobuf, WriteAndParse(otherPing), 2.0 / 3);

  const PacketChatMsg chat("Anna", "Has anybody seen my goat?");
  records::ChatLine otherChat;
  otherChat.set_user(chat.mStrUser);
  otherChat.set_text(chat.mStrMsg);
  AddRow(table, "PacketChatMsg of 25 characters", chat, protobuf, WriteAndParse(otherChat), 2.0 / 3);

  const PacketMove move({{0x80000000, 0x7FFFFFFF, 3, 4, 0}, 12, 7}, Direction::East);
  records::Move otherMove;
  otherMove.set_rx(move.mUintRx);
  otherMove.set_ry(move.mUintRy);
  otherMove.set_ax(move.mByAx);
  otherMove.set_ay(move.mByAy);
  otherMove.set_fx(move.mByFx);
  otherMove.set_fy(move.mByFy);
  otherMove.set_level(move.mByLevel);
  otherMove.set_direction(static_cast<std::uint32_t>(move.mEnmDirection));
  AddRow(table, "PacketMove", move, protobuf, WriteAndParse(otherMove), 5.0 / 6);
}

}  // namespace tolva::bench
