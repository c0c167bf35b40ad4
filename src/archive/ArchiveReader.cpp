#include "archive/ArchiveReader.h"

#include "archive/ArchiveFormat.h"
#include "foundation/RegularFile.h"

namespace tolva {
namespace format = archive_format;

ArchiveReader::ArchiveReader(const std::string& baseName)
    : mIndexPath(baseName + format::kIndexSuffix), mDataPath(baseName + format::kDataSuffix) {}

ArchiveReader::Picture ArchiveReader::ReadPicture(std::uint32_t id) const {
  const ArchiveEntry* entry = mIndex.Find(id);
  if (entry == nullptr) return {ArchiveFault::NoEntry, {}, {}};
  const RegularFile data(mDataPath);
  if (!data.IsOpen()) return {ArchiveFault::NoDataFile, {}, {}};
  if (entry->offset > format::kMaxPictureOffset) return {ArchiveFault::OffsetTooLarge, {}, {}};
  PngCheck check(data, entry->offset);
  if (!check.IsSound()) return {ArchiveFault::UnsoundPicture, {}, {}};
  return {ArchiveFault::None, check.TakeBytes(), check.GetHeader()};
}

ArchiveFault ArchiveReader::Extract(std::uint32_t id, const std::string& path) const {
  const ArchiveEntry* entry = mIndex.Find(id);
  if (entry == nullptr) return ArchiveFault::NoEntry;
  const RegularFile data(mDataPath);
  if (!data.IsOpen()) return ArchiveFault::NoDataFile;
  if (!entry->IsWithin(data)) return ArchiveFault::OutsideDataFile;
  return entry->CopyTo(data, path) ? ArchiveFault::None : ArchiveFault::NotWritten;
}

}  // namespace tolva
