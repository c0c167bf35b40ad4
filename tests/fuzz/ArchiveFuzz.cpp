#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include <SDL_image.h>
#include <sys/mman.h>
#include <unistd.h>
#include <zlib.h>

#include "foundation/RegularFile.h"
#include "media/ArchiveIndex.h"
#include "media/PngCheck.h"
#include "media/Surface.h"

namespace tolva {
namespace {

// A file in memory under a path of its own.
class MemoryFile {
 public:
  explicit MemoryFile(std::span<const std::uint8_t> bytes) : mDescriptor(::memfd_create("fuzz", 0)) {
    if (::write(mDescriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) std::abort();
  }
  ~MemoryFile() { ::close(mDescriptor); }
  std::string GetPath() const { return "/proc/self/fd/" + std::to_string(mDescriptor); }

 private:
  int mDescriptor;
};

// Puts right checksums where a PNG's chunks have theirs: by chance the fuzzer would hardly ever find one.
void MendChecksums(std::vector<std::uint8_t>& bytes) {
  for (std::size_t at = 8; at + 12 <= bytes.size();) {
    const std::size_t length = bytes[at] << 24 | bytes[at + 1] << 16 | bytes[at + 2] << 8 | bytes[at + 3];
    if (length > bytes.size() - at - 12) return;
    const auto sum = static_cast<std::uint32_t>(crc32(0, &bytes[at + 4], static_cast<uInt>(length + 4)));
    for (std::size_t byte = 0; byte < 4; ++byte) {
      bytes[at + 8 + length + byte] = static_cast<std::uint8_t>(sum >> (24 - 8 * byte));
    }
    at += 12 + length;
  }
}

// What passes the check must not trouble the decoder.
void Decode(const PngCheck& check) {
  // Large pictures only cost time here.
  if (!check.IsSound() || check.GetHeader().width * check.GetHeader().height > 65536) return;
  SDL_RWops* stream = SDL_RWFromConstMem(check.GetBytes().data(), static_cast<int>(check.GetBytes().size()));
  const SurfacePtr picture(IMG_LoadPNG_RW(stream));
  SDL_RWclose(stream);
}

void ReadArchive(std::span<const std::uint8_t> bytes) {
  const MemoryFile file(bytes);
  ArchiveIndex index;
  if (!index.Read(file.GetPath().c_str())) std::abort();
  if (index.GetEntries().size() > bytes.size() / 12) std::abort();
  const RegularFile data(file.GetPath().c_str());
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
  tolva::Decode(tolva::PngCheck(png));
  tolva::MendChecksums(png);
  tolva::Decode(tolva::PngCheck(png));
  return 0;
}
