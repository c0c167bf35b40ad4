#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <type_traits>
#include <vector>

#include "protocol/PacketConverter.h"
#include "protocol/PacketList.h"

namespace tolva::test {

// Calls `body` with a type tag for each packet class.
template <typename T>
struct Tag {
  using Type = T;
};

template <typename Body, typename... Packets>
void ForEachPacketClass(Body&& body, TypeList<Packets...>) {
  (body(Tag<Packets>{}), ...);
}

template <typename Body>
void ForEachPacketClass(Body&& body) {
  ForEachPacketClass(std::forward<Body>(body), AllPackets{});
}

// Fills fields with values that the wire can carry; texts of any length up to their capacity.
class FieldFiller {
 public:
  explicit FieldFiller(std::uint32_t seed) : mRandom(seed) {}

  template <typename T>
  std::enable_if_t<std::is_integral_v<T>> Fill(T& value) {
    value = static_cast<T>(mRandom());
  }
  void Fill(Direction& value) { value = static_cast<Direction>(mRandom()); }
  template <std::size_t Capacity>
  void Fill(char (&text)[Capacity]) {
    const std::size_t length = mRandom() % 4 == 0 ? Capacity - 1 : mRandom() % Capacity;
    for (std::size_t i = 0; i < length; ++i) text[i] = static_cast<char>(1 + mRandom() % 255);
    text[length] = '\0';
  }
  void Fill(NameList& names) {
    for (auto& name : names) Fill(name);
  }
  template <typename T>
  void Fill(AreaGrid<T>& grid) {
    for (T& value : grid) Fill(value);
  }
  template <typename T>
  void Fill(T*&) {}

 private:
  std::minstd_rand mRandom;
};

template <typename PacketType>
void FillPacket(PacketType& packet, std::uint32_t seed) {
  FieldFiller filler(seed);
  // A plain packet's only wire field is its code, and changing that would make a false claim.
  if constexpr (!std::is_same_v<PacketType, Packet>) {
    VisitFields(packet, [&](const char*, auto& member) { filler.Fill(member); });
  }
}

inline bool SameField(const char* a, const char* b) { return std::strcmp(a, b) == 0; }
inline bool SameField(const NameList& a, const NameList& b) {
  return std::equal(std::begin(a), std::end(a), std::begin(b), [](auto& x, auto& y) { return SameField(x, y); });
}
template <typename T>
bool SameField(const T& a, const T& b) {
  return a == b;
}

// Whether two packets of one class have equal fields.
template <typename PacketType>
bool SameFields(const PacketType& a, const PacketType& b) {
  return std::apply([&](const auto&... field) { return (SameField(a.*(field.member), b.*(field.member)) && ...); },
                    PacketType::Fields());
}

struct WireRecord {
  explicit WireRecord(const Packet& packet) : bytes(kRecordBufferSize) {
    bytes.resize(PacketConverter().WriteBuffer(bytes.data(), packet));
  }
  std::vector<std::uint8_t> bytes;
};

struct ReadResult {
  std::unique_ptr<Packet> packet;
  std::uint32_t consumed = 0;
};

// Reads from a copy of exactly the given size, so that a sanitizer sees the first byte too many.
inline ReadResult ReadRecord(const std::uint8_t* bytes, std::size_t size) {
  const auto copy = std::make_unique<std::uint8_t[]>(size);
  std::copy_n(bytes, size, copy.get());
  ReadResult result;
  result.packet.reset(PacketConverter().ReadBuffer(copy.get(), static_cast<std::uint32_t>(size), result.consumed));
  return result;
}

inline ReadResult ReadRecord(const std::vector<std::uint8_t>& bytes) { return ReadRecord(bytes.data(), bytes.size()); }

// What a peer can send to pretend: a plain packet's record whose body claims `code`.
inline std::vector<std::uint8_t> FalseClaim(PacketCode code) {
  std::vector<std::uint8_t> bytes = WireRecord(Packet()).bytes;
  StoreBig32(bytes.data() + kHeaderSize, code);
  return bytes;
}

}  // namespace tolva::test
