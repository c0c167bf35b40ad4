#include "media/Archive.h"

#include <cstdio>
#include <utility>
#include <vector>

#include <SDL_image.h>

#include "archive/ArchiveFormat.h"
#include "archive/PngCheck.h"
#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "foundation/LogLimit.h"
#include "foundation/RegularFile.h"

namespace tolva {
namespace format = archive_format;
namespace {

constexpr char kModule[] = "Archive";
constexpr char kNotDecoded[] = "Failed to load picture from archive (Archive - LoadImage)";

// Archives come and go with the screens and their parts; what a server's unknown ids may add to the log is counted over
// the whole run.
LogLimit sFailures;

SurfacePtr DecodePng(const std::vector<std::uint8_t>& bytes) {
  SDL_RWops* stream = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
  if (stream == nullptr) return nullptr;
  SurfacePtr picture(IMG_LoadPNG_RW(stream));
  SDL_RWclose(stream);
  return picture;
}

}  // namespace

Archive::Archive(const char* baseName, InfoHandler* infoHandler) : mInfoHandler(infoHandler) {
  std::snprintf(mArchivePath, sizeof mArchivePath, "%.251s%s", baseName, format::kDataSuffix);
  std::snprintf(mIndexPath, sizeof mIndexPath, "%.251s%s", baseName, format::kIndexSuffix);
}

bool Archive::ReadIndex() {
  return Guard(kModule, "ReadIndex", [&] { return mIndex.Read(mIndexPath); });
}

SDL_Surface* Archive::LoadImage(std::uint32_t id) {
  return Guard(kModule, "LoadImage", [&]() -> SDL_Surface* {
    const SurfacePtr picture = Decode(id);
    if (picture == nullptr) return nullptr;
    // Without a video mode there is no format to convert to, and SDL would crash.
    SDL_Surface* converted = SDL_GetVideoSurface() == nullptr ? nullptr : SDL_DisplayFormat(picture.get());
    if (converted == nullptr) LogFailure(kNotDecoded);
    return converted;
  });
}

SDL_Surface* Archive::DecodeImage(std::uint32_t id) {
  return Guard(kModule, "DecodeImage", [&] { return Decode(id).release(); });
}

bool Archive::Extract(std::uint32_t id, const char* path) {
  return Guard(kModule, "Extract", [&] {
    ReadIndex();
    const ArchiveEntry* entry = mIndex.Find(id);
    return entry != nullptr && entry->CopyTo(RegularFile(mArchivePath), path);
  });
}

SurfacePtr Archive::Decode(std::uint32_t id) {
  const auto fail = [&](const char* reason) {
    LogFailure(reason);
    return SurfacePtr();
  };
  ReadIndex();
  const ArchiveEntry* entry = mIndex.Find(id);
  if (entry == nullptr) return fail("Image id in archive not found (Archive - LoadImage)");
  const RegularFile data(mArchivePath);
  if (!data.IsOpen()) return fail("Failed to open archive file (Archive - LoadImage)");
  if (entry->offset > format::kMaxPictureOffset) {
    return fail("Image id found in index, but not in archive (Archive - LoadImage)");
  }

  // A picture ends where its own end chunk says: the index's size does not count here.
  const PngCheck png(data, entry->offset);
  // The decoder gets the very bytes that were checked, whatever happens to the file meanwhile.
  SurfacePtr picture = png.IsSound() ? DecodePng(png.GetBytes()) : nullptr;
  return picture == nullptr ? fail(kNotDecoded) : std::move(picture);
}

void Archive::LogFailure(const char* text) {
  if (sFailures.Admit(*mInfoHandler)) mInfoHandler->HandleInfo(new Info(text, InfoLevel::Failure));
}

}  // namespace tolva
