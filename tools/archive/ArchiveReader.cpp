#include "tools/archive/ArchiveReader.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "archive/ArchiveFormat.h"
#include "archive/PngCheck.h"
#include "tools/archive/FileKind.h"

namespace tolva {
namespace format = archive_format;

ArchiveReader::ArchiveReader(const std::string& baseName) {
  const std::string indexPath = baseName + format::kIndexSuffix;
  const RegularFile index(indexPath.c_str());
  if (!index.IsOpen()) {
    mFault = "there is no index file (.cci) that can be read";
  } else if (index.GetSize() % format::kRecordSize != 0) {
    mFault = "its index file (.cci) is cut short";
  } else if (!mIndex.Read(indexPath.c_str())) {
    mFault = "its index file (.cci) cannot be read";
  } else if (!mData.Open((baseName + format::kDataSuffix).c_str())) {
    mFault = "there is no data file (.cca) that can be read";
  }
}

ArchiveReader::Listing ArchiveReader::List() const {
  Listing listing;
  for (const auto& [id, entry] : mIndex.GetEntries()) {
    char line[128];
    std::snprintf(line, sizeof line, "%10u %10u %10u ", id, entry.offset, entry.size);
    const Description description = Describe(entry);
    listing.text += line + description.text + "\n";
    if (description.isBroken) ++listing.brokenEntries;
  }
  return listing;
}

ArchiveReader::Description ArchiveReader::Describe(const ArchiveEntry& entry) const {
  if (!entry.IsWithin(mData)) return {"outside the data file", true};
  std::vector<std::uint8_t> start(std::min<std::size_t>(entry.size, kKindBytes));
  if (!mData.ReadAt(entry.offset, start.data(), start.size())) return {"unreadable", true};
  const FileKind kind = TellKind(start);
  if (kind != FileKind::Picture) return {GetKindName(kind)};
  const PngCheck png(mData, entry.offset);
  if (!png.IsSound()) return {std::string("broken picture: ") + png.GetFault(), true};
  return {std::string(GetKindName(kind)) + " " + std::to_string(png.GetHeader().width) + "x" +
          std::to_string(png.GetHeader().height)};
}

const char* ArchiveReader::Extract(std::uint32_t id, const std::string& path) const {
  const ArchiveEntry* entry = mIndex.Find(id);
  if (entry == nullptr) return "there is no such entry";
  if (!entry->IsWithin(mData)) return "it lies outside the data file";
  return entry->CopyTo(mData, path) ? nullptr : "the file cannot be written";
}

}  // namespace tolva
