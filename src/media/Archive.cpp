#include "media/Archive.h"

#include <string>
#include <vector>

#include <SDL_image.h>

#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "foundation/LogRateLimiter.h"

namespace tolva {
namespace {

constexpr char kModule[] = "Archive";
constexpr std::size_t kMaxBaseName = 251;

// Archive objects come and go with screens and their parts, so what unknown ids may add to the log is counted over the
// whole run.
LogRateLimiter sFailures;

const char* LogTextOf(ArchiveFault fault) {
  switch (fault) {
    case ArchiveFault::NoEntry:
      return "Image id in archive not found (Archive - LoadImage)";
    case ArchiveFault::NoDataFile:
      return "Failed to open archive file (Archive - LoadImage)";
    case ArchiveFault::OffsetTooLarge:
      return "Image id found in index, but not in archive (Archive - LoadImage)";
    default:
      return "Failed to load picture from archive (Archive - LoadImage)";
  }
}

SurfacePtr DecodePng(const std::vector<std::uint8_t>& png) {
  SDL_RWops* stream = SDL_RWFromConstMem(png.data(), static_cast<int>(png.size()));
  if (stream == nullptr) return nullptr;
  SurfacePtr picture(IMG_LoadPNG_RW(stream));
  SDL_RWclose(stream);
  return picture;
}

}  // namespace

Archive::Archive(const char* baseName, InfoHandler* infoHandler)
    : mReader(std::string(baseName).substr(0, kMaxBaseName)), mInfoHandler(infoHandler) {}

bool Archive::ReadIndex() {
  return Guard(kModule, "ReadIndex", [&] { return mReader.ReadIndex() != ArchiveIndex::State::Unreadable; });
}

SurfacePtr Archive::LoadImage(std::uint32_t id) {
  return Guard(kModule, "LoadImage", [&]() -> SurfacePtr {
    const SurfacePtr picture = Decode(id);
    if (picture == nullptr) return nullptr;
    // Without a video mode there is no format to convert to, and SDL would crash.
    SurfacePtr converted(SDL_GetVideoSurface() == nullptr ? nullptr : SDL_DisplayFormat(picture.get()));
    if (converted == nullptr) LogFailure(ArchiveFault::UnsoundPicture);
    return converted;
  });
}

SurfacePtr Archive::DecodeImage(std::uint32_t id) {
  return Guard(kModule, "DecodeImage", [&] { return Decode(id); });
}

bool Archive::Extract(std::uint32_t id, const char* path) {
  return Guard(kModule, "Extract", [&] {
    ReadIndex();
    return mReader.Extract(id, path) == ArchiveFault::None;
  });
}

SurfacePtr Archive::Decode(std::uint32_t id) {
  ReadIndex();
  const auto [fault, png, header] = mReader.ReadPicture(id);
  SurfacePtr picture = fault == ArchiveFault::None ? DecodePng(png) : nullptr;
  if (picture == nullptr) LogFailure(fault);
  return picture;
}

void Archive::LogFailure(ArchiveFault fault) {
  if (sFailures.Admit(*mInfoHandler)) mInfoHandler->HandleInfo(new Info(LogTextOf(fault), InfoLevel::Failure));
}

}  // namespace tolva
