#include "archive/ArchiveIndex.h"

#include <filesystem>
#include <vector>

#include "archive/ArchiveFormat.h"
#include "foundation/ByteOrder.h"
#include "foundation/RegularFile.h"

namespace tolva {
namespace format = archive_format;

ArchiveIndex::State ArchiveIndex::Read(const std::string& path) {
  const RegularFile file(path);
  std::error_code ignored;
  const bool isMissing = !file.IsOpen() && !std::filesystem::exists(path, ignored);
  if (!file.IsOpen() && !isMissing) return State::Unreadable;

  const std::uint64_t count = file.GetSize() / format::kRecordSize;
  if (count > format::kMaxRecords) return State::Unreadable;
  std::vector<std::uint8_t> records(count * format::kRecordSize);
  if (count > 0 && !file.ReadAt(0, records.data(), records.size())) return State::Unreadable;

  mEntries.clear();
  for (std::size_t at = 0; at < records.size(); at += format::kRecordSize) {
    const std::uint8_t* record = &records[at];
    mEntries[LoadLittle32(record + format::kIdAt)] = {LoadLittle32(record + format::kOffsetAt),
                                                      LoadLittle32(record + format::kSizeAt)};
  }
  if (isMissing) return State::Missing;
  return file.GetSize() == records.size() ? State::Whole : State::CutShort;
}

const ArchiveEntry* ArchiveIndex::Find(std::uint32_t id) const {
  const auto found = mEntries.find(id);
  return found == mEntries.end() ? nullptr : &found->second;
}

}  // namespace tolva
