#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <zlib.h>

#include "archive/PngCheck.h"
#include "foundation/ByteOrder.h"

namespace tolva::test {

using Bytes = std::vector<std::uint8_t>;

// A small picture for MakePng; an empty part is not written.
struct TestPicture {
  std::uint32_t width = 4;
  std::uint32_t height = 3;
  PngColor color = PngColor::Rgb;
  char bitDepth = 8;
  Bytes palette = {};     // red, green, blue
  Bytes seeThrough = {};  // the alphas of the palette's first entries, or the one color as 16-bit samples
  Bytes samples = {};     // of the first pixels; the others are 0
};

inline std::string BigEndian(std::uint32_t number) {
  std::uint8_t word[4];
  StoreBig32(word, number);
  return std::string(word, word + sizeof word);
}

// A chunk with a correct checksum.
inline std::string MakeChunk(const std::string& type, const std::string& data) {
  const std::string summed = type + data;
  const auto sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
  return BigEndian(static_cast<std::uint32_t>(data.size())) + summed + BigEndian(static_cast<std::uint32_t>(sum));
}
inline std::string MakeChunk(const std::string& type, const Bytes& data) {
  return data.empty() ? "" : MakeChunk(type, std::string(data.begin(), data.end()));
}

inline std::string MakePng(const TestPicture& picture) {
  constexpr int kSamplesPerPixel[] = {1, 0, 3, 1, 2, 0, 4};
  const auto color = static_cast<char>(picture.color);
  const int pixelBits = kSamplesPerPixel[static_cast<std::size_t>(picture.color)] * picture.bitDepth;
  const std::size_t rowSize = (picture.width * static_cast<std::size_t>(pixelBits) + 7) / 8;
  Bytes samples = picture.samples, packed(compressBound((rowSize + 1) * picture.height));
  samples.resize(rowSize * picture.height);
  // Each row begins with its filter type: none.
  for (std::uint32_t y = 0; y < picture.height; ++y)
    samples.insert(samples.begin() + static_cast<std::ptrdiff_t>(y * (rowSize + 1)), 0);
  uLongf size = packed.size();
  compress(packed.data(), &size, samples.data(), samples.size());
  packed.resize(size);
  const std::string kind{picture.bitDepth, color, 0, 0, 0};
  return "\x89PNG\r\n\x1A\n" + MakeChunk("IHDR", BigEndian(picture.width) + BigEndian(picture.height) + kind) +
         MakeChunk("PLTE", picture.palette) + MakeChunk("tRNS", picture.seeThrough) + MakeChunk("IDAT", packed) +
         MakeChunk("IEND", "");
}

}  // namespace tolva::test
