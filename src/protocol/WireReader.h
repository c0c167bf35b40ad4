#pragma once

#include <cstring>

#include "foundation/ByteOrder.h"
#include "protocol/Direction.h"
#include "protocol/PacketField.h"
#include "protocol/WireFormat.h"

namespace tolva {

// Reads fields one after the other from a record of `size` bytes, never beyond its end. A field that does not fit, or a
// text that is too long for its field or not terminated, makes the record damaged; Read then leaves this and all later
// fields unchanged.
class WireReader {
 public:
  WireReader(const std::uint8_t* record, std::uint32_t size, std::uint32_t position)
      : mRecord(record), mSize(size), mPosition(position) {}

  bool IsDamaged() const { return mDamaged; }
  std::uint32_t GetPosition() const { return mPosition; }

  void Read(std::uint32_t& value) {
    if (const std::uint8_t* bytes = Take(4)) value = LoadBig32(bytes);
  }
  void Read(std::uint16_t& value) {
    if (const std::uint8_t* bytes = Take(2)) value = LoadBig16(bytes);
  }
  void Read(std::uint8_t& value) {
    if (const std::uint8_t* bytes = Take(1)) value = *bytes;
  }
  void Read(std::int8_t& value) {
    if (const std::uint8_t* bytes = Take(1)) value = static_cast<std::int8_t>(*bytes);
  }
  void Read(Direction& value) {
    std::uint32_t number = 0;
    Read(number);
    value = static_cast<Direction>(number);
  }

  template <std::size_t Capacity>
  void Read(char (&text)[Capacity]) {
    std::uint32_t length = 0;
    Read(length);
    if (length == 0 || length > Capacity) mDamaged = true;
    const std::uint8_t* bytes = mDamaged ? nullptr : Take(length);
    if (bytes == nullptr) return;
    if (bytes[length - 1] != 0) {
      mDamaged = true;
      return;
    }
    std::memcpy(text, bytes, length);
  }
  // The dimensions before lists and grids carry no information: both always have their full size.
  void Read(NameList& names) {
    Take(4);
    for (auto& name : names) Read(name);
  }
  template <typename T>
  void Read(AreaGrid<T>& grid) {
    Take(8);
    for (T& value : grid) Read(value);
  }
  // Pointers are not on the wire; they keep their null.
  template <typename T>
  void Read(T*&) {}

 private:
  const std::uint8_t* Take(std::uint32_t count) {
    if (mDamaged || count > mSize - mPosition) {
      mDamaged = true;
      return nullptr;
    }
    const std::uint8_t* bytes = mRecord + mPosition;
    mPosition += count;
    return bytes;
  }

  const std::uint8_t* mRecord;
  std::uint32_t mSize;
  std::uint32_t mPosition;
  bool mDamaged = false;
};

}  // namespace tolva
