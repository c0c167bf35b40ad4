#pragma once

#include <cstring>

#include "foundation/ByteOrder.h"
#include "protocol/Direction.h"
#include "protocol/PacketField.h"
#include "protocol/WireFormat.h"

namespace tolva {

// Writes fields one after the other into a record. The buffer must have kRecordBufferSize bytes.
class WireWriter {
 public:
  WireWriter(std::uint8_t* record, std::uint32_t position) : mRecord(record), mPosition(position) {}

  std::uint32_t GetPosition() const { return mPosition; }

  void Write(std::uint32_t value) {
    StoreBig32(mRecord + mPosition, value);
    mPosition += 4;
  }
  void Write(std::uint16_t value) {
    StoreBig16(mRecord + mPosition, value);
    mPosition += 2;
  }
  void Write(std::uint8_t value) { mRecord[mPosition++] = value; }
  void Write(std::int8_t value) { Write(static_cast<std::uint8_t>(value)); }
  void Write(Direction value) { Write(static_cast<std::uint32_t>(value)); }

  template <std::size_t Capacity>
  void Write(const char (&text)[Capacity]) {
    const auto length = static_cast<std::uint32_t>(strnlen(text, Capacity - 1));
    Write(length + 1);
    std::memcpy(mRecord + mPosition, text, length);
    mRecord[mPosition + length] = 0;
    mPosition += length + 1;
  }
  void Write(const NameList& names) {
    Write(static_cast<std::uint32_t>(kUserListCapacity));
    for (const auto& name : names) Write(name);
  }
  template <typename T>
  void Write(const AreaGrid<T>& grid) {
    Write(static_cast<std::uint32_t>(kAreaEdge));
    Write(static_cast<std::uint32_t>(kAreaEdge));
    for (const T value : grid) Write(value);
  }
  // Addresses mean nothing to the peer.
  template <typename T>
  void Write(T* const&) {}

 private:
  std::uint8_t* mRecord;
  std::uint32_t mPosition;
};

}  // namespace tolva
