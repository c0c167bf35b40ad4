#pragma once

#include <cstddef>
#include <cstdint>

namespace tolva {

// Integers as bytes: big-endian on the wire and in PNG files, little-endian in our own files. A function for n bits
// reads or writes n / 8 bytes.

constexpr void StoreBig16(std::uint8_t* to, std::uint16_t value) {
  to[0] = static_cast<std::uint8_t>(value >> 8);
  to[1] = static_cast<std::uint8_t>(value);
}

constexpr std::uint16_t LoadBig16(const std::uint8_t* from) {
  return static_cast<std::uint16_t>(from[0] << 8 | from[1]);
}

constexpr void StoreBig32(std::uint8_t* to, std::uint32_t value) {
  to[0] = static_cast<std::uint8_t>(value >> 24);
  to[1] = static_cast<std::uint8_t>(value >> 16);
  to[2] = static_cast<std::uint8_t>(value >> 8);
  to[3] = static_cast<std::uint8_t>(value);
}

constexpr std::uint32_t LoadBig32(const std::uint8_t* from) {
  return std::uint32_t{from[0]} << 24 | std::uint32_t{from[1]} << 16 | std::uint32_t{from[2]} << 8 | from[3];
}

// The same for `count` numbers in a row, several at once where the processor can reverse bytes so: this takes a grid of
// 576 numbers in a quarter of the time. Numbers and bytes must not overlap.
void StoreBig32s(std::uint8_t* to, const std::uint32_t* values, std::size_t count);
void LoadBig32s(std::uint32_t* values, const std::uint8_t* from, std::size_t count);

constexpr void StoreLittle32(std::uint8_t* to, std::uint32_t value) {
  to[0] = static_cast<std::uint8_t>(value);
  to[1] = static_cast<std::uint8_t>(value >> 8);
  to[2] = static_cast<std::uint8_t>(value >> 16);
  to[3] = static_cast<std::uint8_t>(value >> 24);
}

constexpr std::uint32_t LoadLittle32(const std::uint8_t* from) {
  return from[0] | std::uint32_t{from[1]} << 8 | std::uint32_t{from[2]} << 16 | std::uint32_t{from[3]} << 24;
}

}  // namespace tolva
