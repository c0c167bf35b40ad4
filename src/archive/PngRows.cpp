#include "archive/PngRows.h"

#include <cstring>
#include <new>

namespace tolva {
namespace {

// libpng's default handlers write to standard error.
void HandleError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
void HandleWarning(png_structp, png_const_charp) {}

}  // namespace

PngRows::PngRows(std::span<const std::uint8_t> bytes)
    : mBytes(bytes), mPng(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, &HandleError, &HandleWarning)) {
  if (mPng != nullptr) mInfo = png_create_info_struct(mPng);
  if (mInfo == nullptr) throw std::bad_alloc();
  mDecoded = Decode();
  if (mDecoded) TakeColors();
}

PngRows::~PngRows() { png_destroy_read_struct(&mPng, &mInfo, nullptr); }

// libpng reports errors by a jump back into this operation, so it must not have objects with destructors.
bool PngRows::Decode() {
  if (setjmp(png_jmpbuf(mPng)) != 0) return false;
  png_set_read_fn(mPng, this, &PngRows::ReadBytes);
  png_read_png(mPng, mInfo, PNG_TRANSFORM_PACKING, nullptr);
  return true;
}

void PngRows::TakeColors() {
  mRows = png_get_rows(mPng, mInfo);
  png_colorp colors = nullptr;
  int count = 0;
  if (png_get_PLTE(mPng, mInfo, &colors, &count) != 0) mPalette = {colors, static_cast<std::size_t>(count)};
  png_bytep alphas = nullptr;
  png_color_16p key = nullptr;
  if (png_get_tRNS(mPng, mInfo, &alphas, &count, &key) == 0) return;
  if (png_get_color_type(mPng, mInfo) == PNG_COLOR_TYPE_PALETTE) {
    mAlphas = {alphas, static_cast<std::size_t>(count)};
  } else {
    mKey = key;
  }
}

void PngRows::ReadBytes(png_structp png, png_bytep to, png_size_t count) {
  auto& left = static_cast<PngRows*>(png_get_io_ptr(png))->mBytes;
  if (count > left.size()) png_error(png, "cut short");
  std::memcpy(to, left.data(), count);
  left = left.subspan(count);
}

}  // namespace tolva
