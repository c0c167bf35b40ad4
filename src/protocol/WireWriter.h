#pragma once

#include <cstring>

#include "foundation/ByteOrder.h"
#include "protocol/Direction.h"
#include "protocol/PacketField.h"

namespace tolva {

// Writes fields one after the other. The buffer must have room for them all.
class WireWriter {
 public:
  explicit WireWriter(std::uint8_t* to) : mTo(to) {}

  // Where the next field goes.
  std::uint8_t* GetEnd() const { return mTo; }

  void Write(std::uint32_t value) { StoreBig32(Take(4), value); }
  void Write(std::uint16_t value) { StoreBig16(Take(2), value); }
  void Write(std::uint8_t value) { *Take(1) = value; }
  void Write(std::int8_t value) { Write(static_cast<std::uint8_t>(value)); }
  void Write(Direction value) { Write(static_cast<std::uint32_t>(value)); }

  template <std::size_t Capacity>
  void Write(const char (&text)[Capacity]) {
    const auto length = static_cast<std::uint32_t>(strnlen(text, Capacity - 1));
    Write(length + 1);
    std::memcpy(Take(length), text, length);
    *Take(1) = 0;
  }
  void Write(const NameList& names) {
    Write(static_cast<std::uint32_t>(kUserListCapacity));
    for (const auto& name : names) Write(name);
  }
  void Write(const AreaGrid<std::uint32_t>& grid) {
    WriteDimensions();
    StoreBig32s(Take(sizeof grid), grid.data(), grid.size());
  }
  void Write(const AreaGrid<std::uint8_t>& grid) {
    WriteDimensions();
    std::memcpy(Take(sizeof grid), grid.data(), sizeof grid);
  }
  // Addresses mean nothing to the peer.
  template <typename T>
  void Write(T* const&) {}

 private:
  void WriteDimensions() {
    Write(static_cast<std::uint32_t>(kAreaEdge));
    Write(static_cast<std::uint32_t>(kAreaEdge));
  }
  std::uint8_t* Take(std::size_t count) {
    std::uint8_t* to = mTo;
    mTo += count;
    return to;
  }

  std::uint8_t* mTo;
};

}  // namespace tolva
