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

// Reads a PNG picture chunk by chunk, from its signature to its end chunk, and says whether it may be given to the
// decoder, which takes what it gets: a file that ends too early makes it loop for ever, and a few bytes can ask it for
// a picture of gigabytes. The compressed pixels are not looked at; the decoder notices damage there.
class PngCheck {
 public:
  static constexpr std::uint32_t kMaxSide = 4096;
  static constexpr std::uint32_t kMaxPixels = 1U << 22;
  static constexpr std::size_t kMaxBytes = std::size_t{1} << 25;

  // Delivers the next `count` bytes, or false.
  using ReadBytes = std::function<bool(std::uint8_t* to, std::size_t count)>;

  // Reads at most `available` bytes from `read`, and never beyond the picture's end.
  PngCheck(std::uint64_t available, const ReadBytes& read);
  // The picture that starts `offset` bytes into the file.
  PngCheck(const RegularFile& file, std::uint64_t offset);
  explicit PngCheck(std::span<const std::uint8_t> bytes);

  bool IsSound() const { return mFault == nullptr; }
  // What is wrong, in words for whoever made the picture; null for a sound one.
  const char* GetFault() const { return mFault; }

  // For a sound picture: its header and exactly its own bytes.
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
  // Appends `count` bytes to the picture; null when there are not so many.
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
