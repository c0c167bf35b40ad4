#include "media/PictureAhead.h"

#include <utility>

#include "archive/ArchiveReader.h"
#include "archive/PngCheck.h"
#include "archive/PngRows.h"
#include "sdl/Surface.h"

namespace tolva {

// Without a thread to spare the picture is decoded in Take.
PictureAhead::PictureAhead(std::string baseName, std::uint32_t id)
    : mPixels(std::async(std::launch::async | std::launch::deferred, &PictureAhead::Decode, std::move(baseName), id)) {}

// Not by SDL_image, as SDL makes surfaces only on the thread that has the video system.
PictureAhead::Pixels PictureAhead::Decode(const std::string& baseName, std::uint32_t id) {
  ArchiveReader reader(baseName);
  reader.ReadIndex();
  const ArchiveReader::Picture picture = reader.ReadPicture(id);
  if (picture.fault != ArchiveFault::None) return {};
  const PngHeader& header = picture.header;
  if (header.color != PngColor::Rgb || header.bitDepth != 8) return {};
  const PngRows rows(picture.png);
  if (!rows.IsDecoded() || rows.GetKey() != nullptr) return {};
  Pixels pixels{static_cast<int>(header.width), static_cast<int>(header.height), {}};
  pixels.colors.reserve(std::size_t{header.width} * header.height);
  for (std::uint32_t y = 0; y < header.height; ++y) {
    const std::uint8_t* rgb = rows.GetRow(y);
    for (std::uint32_t x = 0; x < header.width; ++x, rgb += 3) {
      pixels.colors.push_back(std::uint32_t{rgb[0]} << 16 | std::uint32_t{rgb[1]} << 8 | rgb[2]);
    }
  }
  return pixels;
}

SurfacePtr PictureAhead::Take() {
  if (!mPixels.valid()) return nullptr;
  Pixels pixels = mPixels.get();
  if (pixels.colors.empty()) return nullptr;
  const SurfacePtr picture(SDL_CreateRGBSurfaceFrom(pixels.colors.data(), pixels.width, pixels.height, 32,
                                                    pixels.width * 4, 0xFF0000, 0xFF00, 0xFF, 0));
  return picture == nullptr ? nullptr : CopyForDisplay(*picture);
}

}  // namespace tolva
