#include "archive/PngCheck.h"

#include <algorithm>
#include <cstring>

#include <zlib.h>

#include "foundation/ByteOrder.h"
#include "foundation/RegularFile.h"

namespace tolva {
namespace {

constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kChunkHeaderSize = 8;  // length and type
constexpr std::size_t kCrcSize = 4;
constexpr std::size_t kHeaderDataSize = 13;

constexpr char kCutShort[] = "it is cut short";

constexpr std::uint32_t Type(const char (&name)[5]) {
  std::uint32_t type = 0;
  for (int letter = 0; letter < 4; ++letter) type = type << 8 | static_cast<std::uint8_t>(name[letter]);
  return type;
}

constexpr std::uint32_t kIhdr = Type("IHDR");
constexpr std::uint32_t kPlte = Type("PLTE");
constexpr std::uint32_t kTrns = Type("tRNS");
constexpr std::uint32_t kIdat = Type("IDAT");
constexpr std::uint32_t kIend = Type("IEND");

// A decoder must know every chunk whose type begins with a capital letter.
bool IsCritical(std::uint32_t type) { return (type & 0x20000000) == 0; }

bool IsKnownDepth(PngColor color, int depth) {
  switch (color) {
    case PngColor::Gray:
      return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    case PngColor::Palette:
      return depth == 1 || depth == 2 || depth == 4 || depth == 8;
    case PngColor::Rgb:
    case PngColor::GrayAlpha:
    case PngColor::Rgba:
      return depth == 8 || depth == 16;
  }
  return false;
}

}  // namespace

PngCheck::PngCheck(std::uint64_t available, const ReadBytes& read) : mAvailable(available), mFault(Walk(read)) {}

PngCheck::PngCheck(const RegularFile& file, std::uint64_t offset)
    : PngCheck(file.GetSize() - std::min(file.GetSize(), offset),
               [&file, offset](std::uint8_t* to, std::size_t count) mutable {
                 offset += count;
                 return file.ReadAt(offset - count, to, count);
               }) {}

PngCheck::PngCheck(std::span<const std::uint8_t> bytes)
    : PngCheck(bytes.size(), [bytes](std::uint8_t* to, std::size_t count) mutable {
        std::memcpy(to, bytes.data(), count);
        bytes = bytes.subspan(count);
        return true;
      }) {}

const char* PngCheck::Walk(const ReadBytes& read) {
  const std::uint8_t* signature = Append(read, sizeof kSignature);
  if (signature == nullptr || std::memcmp(signature, kSignature, sizeof kSignature) != 0) return "it is not a PNG file";
  while (mPreviousType != kIend) {
    Chunk chunk{};
    if (const char* fault = ReadChunk(read, chunk)) return fault;
    if (const char* fault = CheckChunk(chunk)) return fault;
    mPreviousType = chunk.type;
  }
  return nullptr;
}

const char* PngCheck::ReadChunk(const ReadBytes& read, Chunk& chunk) {
  const std::uint8_t* header = Append(read, kChunkHeaderSize);
  if (header == nullptr) return kCutShort;
  const std::uint32_t length = LoadBig32(header);
  chunk.type = LoadBig32(header + 4);
  if (length > kMaxBytes) return "a chunk is too long";
  // The checksum covers type and data.
  const std::uint8_t* data = Append(read, length + kCrcSize);
  if (data == nullptr) return kCutShort;
  const auto summed = static_cast<uInt>(length + sizeof chunk.type);
  if (crc32(0, data - sizeof chunk.type, summed) != LoadBig32(data + length)) return "a chunk's checksum is wrong";
  chunk.data = {data, length};
  return nullptr;
}

const char* PngCheck::CheckChunk(const Chunk& chunk) {
  if ((mPreviousType == 0) != (chunk.type == kIhdr)) return "its header is missing or repeated";
  switch (chunk.type) {
    case kIhdr:
      return CheckHeader(chunk.data);
    case kPlte:
      return CheckPalette(chunk.data.size());
    case kTrns:
      return CheckTransparency(chunk.data.size());
    case kIdat:
      return CheckPixels();
    case kIend:
      return mHasPixels && chunk.data.empty() ? nullptr : "it ends without pixels";
    default:
      return IsCritical(chunk.type) ? "it has an unknown critical chunk" : nullptr;
  }
}

const char* PngCheck::CheckHeader(std::span<const std::uint8_t> data) {
  if (data.size() != kHeaderDataSize) return "its header is damaged";
  mHeader.width = LoadBig32(&data[0]);
  mHeader.height = LoadBig32(&data[4]);
  mHeader.bitDepth = data[8];
  mHeader.color = static_cast<PngColor>(data[9]);
  const auto compression = data[10], filter = data[11], interlace = data[12];
  if (!IsKnownDepth(mHeader.color, mHeader.bitDepth)) return "its header names an unknown color type or bit depth";
  if (compression != 0 || filter != 0 || interlace > 1) return "its header is damaged";
  if (mHeader.width == 0 || mHeader.height == 0) return "it has no pixels";
  if (mHeader.width > kMaxSide || mHeader.height > kMaxSide) return "it is wider or higher than 4096 pixels";
  if (mHeader.width * mHeader.height > kMaxPixels) return "it has more than 4194304 pixels";
  return nullptr;
}

const char* PngCheck::CheckPalette(std::size_t size) {
  const bool isMisplaced = mPaletteEntries > 0 || mHasPixels;
  const bool isForeign = mHeader.color == PngColor::Gray || mHeader.color == PngColor::GrayAlpha;
  if (isMisplaced || isForeign || size == 0 || size % 3 != 0 || size > std::size_t{3} * 256)
    return "its palette is damaged";
  mPaletteEntries = size / 3;
  if (mHeader.color == PngColor::Palette && mPaletteEntries > std::size_t{1} << mHeader.bitDepth) {
    return "its palette has more entries than its bit depth allows";
  }
  return nullptr;
}

const char* PngCheck::CheckTransparency(std::size_t size) const {
  bool isFitting = !mHasPixels;
  if (mHeader.color == PngColor::Palette) isFitting = isFitting && size >= 1 && size <= mPaletteEntries;
  if (mHeader.color == PngColor::Gray) isFitting = isFitting && size == 2;
  if (mHeader.color == PngColor::Rgb) isFitting = isFitting && size == 6;
  return isFitting ? nullptr : "its transparency chunk is damaged";
}

const char* PngCheck::CheckPixels() {
  if (mHeader.color == PngColor::Palette && mPaletteEntries == 0) return "its palette is missing";
  if (mHasPixels && mPreviousType != kIdat) return "its pixels are not in one piece";
  mHasPixels = true;
  return nullptr;
}

std::uint8_t* PngCheck::Append(const ReadBytes& read, std::size_t count) {
  if (count > mAvailable || count > kMaxBytes - std::min(kMaxBytes, mBytes.size())) return nullptr;
  const std::size_t before = mBytes.size();
  mBytes.resize(before + count);
  mAvailable -= count;
  return read(&mBytes[before], count) ? &mBytes[before] : nullptr;
}

}  // namespace tolva
