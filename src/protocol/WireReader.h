#pragma once

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>

#include "foundation/ByteOrder.h"
#include "protocol/Direction.h"
#include "protocol/PacketField.h"
#include "protocol/WireSize.h"

namespace tolva {

// Reads the fields of one packet from the body of a record, never beyond its end. Compares with the end once for all
// fields together and once for each text, because a comparison for each of a grid's values costs several times what
// copying them does.
class WireReader {
 public:
  WireReader(const std::uint8_t* body, std::uint32_t size) : mBegin(body), mAt(body), mSize(size) {}

  // The number of bytes that the fields took.
  std::uint32_t GetReadCount() const { return static_cast<std::uint32_t>(mAt - mBegin); }

  // False, with some fields read or none, when the body is damaged: too short for the fields, or with a text that is
  // too long for its field or not terminated.
  template <typename PacketType>
  bool ReadFields(PacketType& packet) {
    constexpr std::uint32_t kLeast = LeastBodySize<PacketType>();
    if (mSize < kLeast) return false;
    mSpare = mSize - kLeast;
    return std::apply([&](const auto&... field) { return (Read(packet.*(field.member)) && ...); },
                      PacketType::Fields());
  }

 private:
  bool Read(std::uint32_t& value) {
    value = LoadBig32(Take(4));
    return true;
  }
  bool Read(std::uint16_t& value) {
    value = LoadBig16(Take(2));
    return true;
  }
  bool Read(std::uint8_t& value) {
    value = *Take(1);
    return true;
  }
  bool Read(std::int8_t& value) {
    value = static_cast<std::int8_t>(*Take(1));
    return true;
  }
  bool Read(Direction& value) {
    value = static_cast<Direction>(LoadBig32(Take(4)));
    return true;
  }

  template <std::size_t Capacity>
  bool Read(char (&text)[Capacity]) {
    // A length of 0 wraps around and is too long.
    const std::uint32_t beyondEmpty = LoadBig32(Take(4)) - 1;
    if (beyondEmpty >= Capacity || beyondEmpty > mSpare || mAt[beyondEmpty] != 0) return false;
    mSpare -= beyondEmpty;
    std::memcpy(text, Take(beyondEmpty + 1), beyondEmpty + 1);
    return true;
  }
  // The dimensions before lists and grids carry no information: both always have their full size.
  bool Read(NameList& names) {
    Take(4);
    return std::all_of(std::begin(names), std::end(names), [&](auto& name) { return Read(name); });
  }
  bool Read(AreaGrid<std::uint32_t>& grid) {
    Take(8);
    LoadBig32s(grid.data(), Take(sizeof grid), grid.size());
    return true;
  }
  bool Read(AreaGrid<std::uint8_t>& grid) {
    Take(8);
    std::memcpy(grid.data(), Take(sizeof grid), sizeof grid);
    return true;
  }
  // Pointers are not on the wire; they keep their null.
  template <typename T>
  bool Read(T*&) {
    return true;
  }

  const std::uint8_t* Take(std::uint32_t count) {
    const std::uint8_t* bytes = mAt;
    mAt += count;
    return bytes;
  }

  const std::uint8_t* mBegin;
  const std::uint8_t* mAt;
  std::uint32_t mSize;
  // How many bytes more than the fewest the texts not yet read can take together.
  std::uint32_t mSpare = 0;
};

}  // namespace tolva
