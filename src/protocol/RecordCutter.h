#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "protocol/PacketConverter.h"

namespace tolva {

// Collects the bytes of a stream and cuts them into packets. Tells a record that is not yet whole from bytes that never
// will be one, so that a hostile or broken stream ends in a loss instead of a stall. Memory is bounded: it holds one
// buffer.
class RecordCutter {
 public:
  enum class Outcome {
    Cut,         // a packet was cut
    Incomplete,  // more bytes are needed
    Broken       // the stream cannot go on: wrong magic, impossible length or damaged record
  };
  struct Result {
    Outcome outcome;
    std::unique_ptr<Packet> packet;  // set with Cut only
  };

  // Where the next received bytes go; never empty after Next() said Incomplete. Say with Commit how many were written.
  std::span<std::uint8_t> Room();
  void Commit(std::size_t count);

  // The next packet, in the order of the stream.
  Result Next();

  std::size_t GetHeldCount() const { return mEnd - mBegin; }
  // Forgets everything held, for a new stream.
  void Clear() { mBegin = mEnd = 0; }

 private:
  bool CanBecomeRecord() const;

  PacketConverter mConverter;
  std::array<std::uint8_t, kRecordBufferSize> mBytes;
  std::size_t mBegin = 0;
  std::size_t mEnd = 0;
};

}  // namespace tolva
