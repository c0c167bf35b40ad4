#pragma once

#include <cstdint>
#include <span>

#include <png.h>

namespace tolva {

// The decoded pixels and colors of a PNG picture with at most 8 bits per sample, one byte for each sample.
class PngRows {
 public:
  // Decodes `bytes`, which are not needed afterward.
  explicit PngRows(std::span<const std::uint8_t> bytes);
  ~PngRows();
  PngRows(const PngRows&) = delete;
  PngRows& operator=(const PngRows&) = delete;

  // False when the pixels are damaged; the other operations must not be called then.
  bool IsDecoded() const { return mDecoded; }
  const std::uint8_t* GetRow(std::uint32_t y) const { return mRows[y]; }
  std::span<const png_color> GetPalette() const { return mPalette; }
  // The alphas of the palette's first entries, 0 for see-through; may be shorter than the palette or empty.
  std::span<const std::uint8_t> GetAlphas() const { return mAlphas; }
  // The transparent color of a picture without a palette, or null.
  const png_color_16* GetKey() const { return mKey; }

 private:
  bool Decode();
  void TakeColors();
  static void ReadBytes(png_structp png, png_bytep to, png_size_t count);

  std::span<const std::uint8_t> mBytes;
  png_structp mPng;
  png_infop mInfo = nullptr;
  png_bytepp mRows = nullptr;
  std::span<const png_color> mPalette;
  std::span<const std::uint8_t> mAlphas;
  const png_color_16* mKey = nullptr;
  bool mDecoded = false;
};

}  // namespace tolva
