#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include <SDL_image.h>
#include <sys/mman.h>
#include <unistd.h>
#include <zlib.h>

#include "archive/ArchiveFormat.h"
#include "archive/ArchiveIndex.h"
#include "archive/PngCheck.h"
#include "foundation/ByteOrder.h"
#include "foundation/RegularFile.h"
#include "protocol/WireFormat.h"
#include "sdl/SurfacePtr.h"

namespace tolva {
namespace {

// Corrects the checksums of a PNG's chunks, which the fuzzer would hardly ever find by chance.
void CorrectChecksums(std::span<std::uint8_t> bytes) {
  for (std::size_t at = 8; at + 12 <= bytes.size();) {
    const std::size_t length = LoadBig32(&bytes[at]);
    if (length > bytes.size() - at - 12) return;
    const auto sum = crc32(0, &bytes[at + 4], static_cast<uInt>(length + 4));
    StoreBig32(&bytes[at + 8 + length], static_cast<std::uint32_t>(sum));
    at += 12 + length;
  }
}

// The decoder must cope with everything that passes the check.
void Decode(const PngCheck& check) {
  // Large pictures would only take time.
  if (!check.IsSound() || check.GetHeader().width * check.GetHeader().height > 65536) return;
  SDL_RWops* stream = SDL_RWFromConstMem(check.GetBytes().data(), static_cast<int>(check.GetBytes().size()));
  const SurfacePtr picture(IMG_LoadPNG_RW(stream));
  SDL_RWclose(stream);
}

// Reads the bytes both as an index and as its data file.
void ReadArchive(std::span<const std::uint8_t> bytes) {
  static const int file = ::memfd_create("fuzz", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  const auto size = static_cast<ssize_t>(bytes.size());
  if (::ftruncate(file, size) != 0 || ::pwrite(file, bytes.data(), bytes.size(), 0) != size) std::abort();
  ArchiveIndex index;
  if (index.Read(path) == ArchiveIndex::State::Unreadable) std::abort();
  if (index.GetEntries().size() > bytes.size() / archive_format::kRecordSize) std::abort();
  const RegularFile data(path);
  for (const auto& [id, entry] : index.GetEntries()) {
    const PngCheck check(data, entry.offset);
    if (check.IsSound() && check.GetBytes().size() > data.GetSize() - entry.offset) std::abort();
    if (entry.IsWithin(data) && std::uint64_t{entry.offset} + entry.size > data.GetSize()) std::abort();
  }
}

}  // namespace
}  // namespace tolva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tolva::ReadArchive({data, size});
  std::vector<std::uint8_t> png(data, data + size);
  tolva::CorrectChecksums(png);
  tolva::Decode(tolva::PngCheck(png));
  return 0;
}
