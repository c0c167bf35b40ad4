#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "protocol/PacketConverter.h"

namespace tolva {

// Collects the bytes of a stream and decodes them into packets. Distinguishes an incomplete record from bytes that can
// never become one, so that a hostile or broken stream ends the connection instead of stalling it. Uses one buffer of a
// fixed size, whatever the peer sends.
class RecordDecoder {
 public:
  enum class Outcome {
    Decoded,     // here is a packet
    Incomplete,  // more bytes are needed
    Broken       // the stream cannot go on: wrong magic, impossible length or damaged record
  };
  struct Result {
    Outcome outcome;
    std::unique_ptr<Packet> packet;  // set only with Decoded
  };

  // Where to put the next bytes received; Commit then says how many they are. Never empty after Next returned
  // Incomplete.
  std::span<std::uint8_t> Room();
  void Commit(std::size_t count);

  // Decodes the next record of the stream.
  Result Next();

  std::size_t GetHeldCount() const { return mEnd - mBegin; }
  // Drops all bytes, for a new stream.
  void Clear() { mBegin = mEnd = 0; }

 private:
  bool CanBecomeRecord() const;

  PacketConverter mConverter;
  std::array<std::uint8_t, kRecordBufferSize> mBytes;
  std::size_t mBegin = 0;
  std::size_t mEnd = 0;
};

}  // namespace tolva
