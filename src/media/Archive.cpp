#include "media/Archive.h"

#include <cstdio>

#include "foundation/Guard.h"
#include "foundation/InfoHandler.h"
#include "media/ArchiveFormat.h"

namespace tolva {

Archive::Archive(const char* baseName, InfoHandler* infoHandler) : mInfoHandler(infoHandler) {
  std::snprintf(mArchivePath, sizeof mArchivePath, "%.251s%s", baseName, archive_format::kDataSuffix);
  std::snprintf(mIndexPath, sizeof mIndexPath, "%.251s%s", baseName, archive_format::kIndexSuffix);
}

bool Archive::ReadIndex() { return true; }
SDL_Surface* Archive::LoadImage(std::uint32_t) { return nullptr; }
SDL_Surface* Archive::DecodeImage(std::uint32_t) { return nullptr; }
bool Archive::Extract(std::uint32_t, const char*) { return false; }
void Archive::LogFailure(const char* text) { mInfoHandler->HandleInfo(new Info(text, InfoLevel::Failure)); }

}  // namespace tolva
