#include "media/ArchiveIndex.h"

#include <filesystem>
#include <vector>

#include "foundation/RegularFile.h"
#include "media/ArchiveFormat.h"

namespace tolva {
namespace format = archive_format;

bool ArchiveIndex::Read(const char* path) {
  const RegularFile file(path);
  std::error_code ignored;
  if (!file.IsOpen() && std::filesystem::exists(path, ignored)) return false;

  const std::uint64_t count = file.GetSize() / format::kRecordSize;
  if (count > format::kMaxRecords) return false;
  std::vector<std::uint8_t> records(count * format::kRecordSize);
  if (count > 0 && !file.ReadAt(0, records.data(), records.size())) return false;

  mEntries.clear();
  for (std::size_t at = 0; at < records.size(); at += format::kRecordSize) {
    const std::uint8_t* record = &records[at];
    mEntries[format::ReadNumber(record + format::kIdAt)] = {format::ReadNumber(record + format::kOffsetAt),
                                                            format::ReadNumber(record + format::kSizeAt)};
  }
  return true;
}

const ArchiveEntry* ArchiveIndex::Find(std::uint32_t id) const {
  const auto found = mEntries.find(id);
  return found == mEntries.end() ? nullptr : &found->second;
}

}  // namespace tolva
