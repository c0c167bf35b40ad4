#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "foundation/ByteOrder.h"
#include "protocol/PacketConverter.h"
#include "protocol/PacketList.h"

namespace tolva::test {

// A packet's wire record.
template <typename Converter = PacketConverter>
std::string Record(const Packet& packet) {
  std::string bytes(kRecordBufferSize, '\0');
  bytes.resize(Converter().WriteBuffer(reinterpret_cast<std::uint8_t*>(bytes.data()), packet));
  return bytes;
}

// The word of the wire at `offset`.
inline std::uint32_t WordAt(const std::string& bytes, std::size_t offset) {
  return LoadBig32(reinterpret_cast<const std::uint8_t*>(&bytes[offset]));
}

// The bytes with a word of the wire at `offset`.
inline std::string WithWord(std::string bytes, std::size_t offset, std::uint32_t word) {
  StoreBig32(reinterpret_cast<std::uint8_t*>(&bytes[offset]), word);
  return bytes;
}

// A record of any header and body, however impossible.
inline std::string ForgedRecord(PacketCode code, std::uint32_t declaredLength, const std::string& body = "") {
  return WithWord(WithWord(Record(PacketQuit()), 4, code), 8, declaredLength) + body;
}

// The record of a plain packet that claims to be of another class.
inline std::string FalseClaim(PacketCode code) { return WithWord(Record(Packet()), kHeaderSize, code); }

// What reading gives. Reads from a copy of exactly that size, so that a sanitizer sees the first byte too many.
struct ReadRecord {
  explicit ReadRecord(const std::string& bytes) {
    const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());
    packet = PacketConverter().ReadBuffer(copy.data(), static_cast<std::uint32_t>(copy.size()), consumed);
  }
  std::unique_ptr<Packet> packet;
  std::uint32_t consumed = 0;
};

// What a converter makes of the bytes, read from a copy of exactly that size: class, bytes consumed, record of the
// packet.
template <typename Converter>
std::string ReadingBy(const std::string& bytes) {
  const std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());
  std::uint32_t consumed = 0;
  const auto packet = Converter().ReadBuffer(copy.data(), static_cast<std::uint32_t>(copy.size()), consumed);
  const Packet& read = *packet;
  return std::string(typeid(read).name()) + ' ' + std::to_string(consumed) + ' ' + Record<Converter>(read);
}

// Fills fields with values that the wire can carry; texts of any length up to their capacity.
template <std::size_t Capacity>
void FillField(char (&text)[Capacity], std::minstd_rand& random) {
  const std::size_t length = random() % 4 == 0 ? Capacity - 1 : random() % Capacity;
  std::generate_n(text, length, [&] { return static_cast<char>(1 + random() % 255); });
  text[length] = '\0';
}

template <typename T>
void FillField(T& field, std::minstd_rand& random) {
  if constexpr (requires { std::begin(field); }) {
    for (auto& value : field) FillField(value, random);
  } else if constexpr (!std::is_pointer_v<T>) {
    field = static_cast<T>(random());
  }
}

template <typename PacketType>
void FillPacket(PacketType& packet, std::uint32_t seed) {
  std::minstd_rand random(seed);
  // A plain packet's only wire field is its code, and changing that would make a false claim.
  if constexpr (!std::is_same_v<PacketType, Packet>) {
    VisitFields(packet, [&](const char*, auto& field) { FillField(field, random); });
  }
}

// Calls `body` with a filled packet of each class.
template <typename Body>
void ForEachPacketClass(std::uint32_t seed, Body&& body) {
  const auto call = [&](auto packet) {
    FillPacket(packet, seed);
    body(packet);
  };
  [&]<typename... Packets>(TypeList<Packets...>) { (call(Packets()), ...); }(AllPackets{});
}

}  // namespace tolva::test
