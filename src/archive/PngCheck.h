#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace tolva {

class RegularFile;

enum class PngColor : std::uint8_t { Gray = 0, Rgb = 2, Palette = 3, GrayAlpha = 4, Rgba = 6 };

struct PngHeader {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::uint8_t bitDepth = 0;
  PngColor color = PngColor::Gray;
};

// Reads a PNG picture chunk by chunk, from its signature to its end chunk, and decides whether it is safe to decode.
// The decoder does not check: a truncated file can make it loop forever, and a few bytes can make it allocate
// gigabytes. The compressed pixels are not examined; the decoder detects damage there.
class PngCheck {
 public:
  static constexpr std::uint32_t kMaxSide = 4096;
  static constexpr std::uint32_t kMaxPixels = 1U << 22;
  static constexpr std::size_t kMaxBytes = std::size_t{1} << 25;

  // Stores the next `count` bytes in `to`; false when it cannot.
  using ReadBytes = std::function<bool(std::uint8_t* to, std::size_t count)>;

  // Reads at most `available` bytes through `read`, and none after the end chunk.
  PngCheck(std::uint64_t available, const ReadBytes& read);
  // The picture that starts `offset` bytes into the file.
  PngCheck(const RegularFile& file, std::uint64_t offset);
  explicit PngCheck(std::span<const std::uint8_t> bytes);

  bool IsSound() const { return mFault == nullptr; }
  // What is wrong, as a phrase for people, or null.
  const char* GetFault() const { return mFault; }

  // Of a sound picture: its header, and its bytes from the signature to the end chunk.
  const PngHeader& GetHeader() const { return mHeader; }
  const std::vector<std::uint8_t>& GetBytes() const { return mBytes; }
  std::vector<std::uint8_t> TakeBytes() { return std::move(mBytes); }

 private:
  struct Chunk {
    std::uint32_t type;
    std::span<const std::uint8_t> data;
  };

  const char* Walk(const ReadBytes& read);
  const char* ReadChunk(const ReadBytes& read, Chunk& chunk);
  const char* CheckChunk(const Chunk& chunk);
  const char* CheckHeader(std::span<const std::uint8_t> data);
  const char* CheckPalette(std::size_t size);
  const char* CheckTransparency(std::size_t size) const;
  const char* CheckPixels();
  // Appends the next `count` bytes to mBytes and returns where they start; null when there are fewer.
  std::uint8_t* Append(const ReadBytes& read, std::size_t count);

  PngHeader mHeader;
  std::vector<std::uint8_t> mBytes;
  std::uint64_t mAvailable;
  std::uint32_t mPreviousType = 0;
  std::size_t mPaletteEntries = 0;
  bool mHasPixels = false;
  const char* mFault;
};

}  // namespace tolva
