#include "protocol/RecordDecoder.h"

#include <algorithm>
#include <cstring>

#include "foundation/ByteOrder.h"
#include "protocol/WireFormat.h"

namespace tolva {

std::span<std::uint8_t> RecordDecoder::Room() {
  if (mBegin > 0) {
    std::memmove(mBytes.data(), mBytes.data() + mBegin, GetHeldCount());
    mEnd -= mBegin;
    mBegin = 0;
  }
  return std::span(mBytes).subspan(mEnd);
}

void RecordDecoder::Commit(std::size_t count) { mEnd += std::min(count, mBytes.size() - mEnd); }

RecordDecoder::Result RecordDecoder::Next() {
  if (!CanBecomeRecord()) return {Outcome::Broken, nullptr};
  const std::uint8_t* bytes = mBytes.data() + mBegin;
  const auto held = static_cast<std::uint32_t>(GetHeldCount());
  if (held < kHeaderSize || LoadBig32(bytes + 8) > held) return {Outcome::Incomplete, nullptr};

  std::uint32_t consumed = 0;
  std::unique_ptr<Packet> packet = mConverter.ReadBuffer(bytes, held, consumed);
  if (consumed == 0) return {Outcome::Broken, nullptr};
  mBegin += consumed;
  return {Outcome::Decoded, std::move(packet)};
}

bool RecordDecoder::CanBecomeRecord() const {
  std::uint8_t magic[4];
  StoreBig32(magic, kProtocolMagic);
  const std::uint8_t* bytes = mBytes.data() + mBegin;
  if (!std::equal(bytes, bytes + std::min<std::size_t>(GetHeldCount(), sizeof magic), magic)) return false;
  if (GetHeldCount() < kHeaderSize) return true;
  const std::uint32_t declared = LoadBig32(bytes + 8);
  return declared >= kHeaderSize && declared <= kRecordBufferSize;
}

}  // namespace tolva
