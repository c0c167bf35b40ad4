#pragma once

#include <array>
#include <string>

#include "protocol/PacketConverter.h"

namespace tolva::test {

// A packet's wire record.
inline std::string Record(const Packet& packet) {
  std::array<std::uint8_t, kRecordBufferSize> bytes;
  const std::uint32_t length = PacketConverter().WriteBuffer(bytes.data(), packet);
  return {bytes.begin(), bytes.begin() + length};
}

// A record of any header and body, however impossible.
inline std::string ForgedRecord(PacketCode code, std::uint32_t declaredLength, const std::string& body = "") {
  std::array<std::uint8_t, kHeaderSize> header;
  StoreBig32(header.data(), kProtocolMagic);
  StoreBig32(header.data() + 4, code);
  StoreBig32(header.data() + 8, declaredLength);
  return std::string(header.begin(), header.end()) + body;
}

// The record of a plain packet that claims to be of another class.
inline std::string FalseClaim(PacketCode code) {
  std::string body(4, '\0');
  StoreBig32(reinterpret_cast<std::uint8_t*>(body.data()), code);
  return ForgedRecord(0, 16, body);
}

}  // namespace tolva::test
