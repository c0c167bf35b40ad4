#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <png.h>
#include <zlib.h>

namespace tolva::test {

// A small picture to be written as a PNG file; what is left empty is not written.
struct TestPicture {
  std::uint32_t width = 4;
  std::uint32_t height = 3;
  int colour = PNG_COLOR_TYPE_RGB;
  int bitDepth = 8;
  std::vector<png_color> palette = {};
  std::vector<std::uint8_t> alphas = {};   // of the palette's first entries
  std::vector<png_color_16> keys = {};     // one transparent colour, without a palette
  std::vector<std::uint8_t> samples = {};  // of the first pixels; the others are 0
};

constexpr png_color kBlack{0, 0, 0};
constexpr png_color kMagenta{255, 0, 255};
constexpr png_color_16 kMagentaKey{0, 255, 0, 255, 0};

inline std::string MakePng(const TestPicture& picture) {
  std::string file;
  const auto fail = [](png_structp, png_const_charp message) { throw std::runtime_error(message); };
  const auto append = [](png_structp png, png_bytep bytes, png_size_t count) {
    static_cast<std::string*>(png_get_io_ptr(png))->append(reinterpret_cast<char*>(bytes), count);
  };
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(png, &file, append, nullptr);
  png_set_IHDR(png, info, picture.width, picture.height, picture.bitDepth, picture.colour, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (!picture.palette.empty()) {
    png_set_PLTE(png, info, picture.palette.data(), static_cast<int>(picture.palette.size()));
  }
  if (!picture.alphas.empty()) {
    png_set_tRNS(png, info, picture.alphas.data(), static_cast<int>(picture.alphas.size()), nullptr);
  }
  if (!picture.keys.empty()) png_set_tRNS(png, info, nullptr, 1, picture.keys.data());
  png_write_info(png, info);
  const std::size_t rowSize = png_get_rowbytes(png, info);
  std::vector<std::uint8_t> samples = picture.samples;
  samples.resize(rowSize * picture.height);
  for (std::uint32_t y = 0; y < picture.height; ++y) png_write_row(png, &samples[y * rowSize]);
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return file;
}

inline std::string BigEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

// A chunk with a right checksum, whatever it holds.
inline std::string MakeChunk(const std::string& type, const std::string& data) {
  const std::string summed = type + data;
  const auto sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
  return BigEndian(static_cast<std::uint32_t>(data.size())) + summed + BigEndian(static_cast<std::uint32_t>(sum));
}

}  // namespace tolva::test
