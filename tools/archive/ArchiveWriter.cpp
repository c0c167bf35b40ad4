#include "tools/archive/ArchiveWriter.h"

#include "archive/ArchiveFormat.h"
#include "foundation/ByteOrder.h"

namespace tolva {
namespace format = archive_format;

ArchiveWriter::ArchiveWriter(const std::string& baseName)
    : mData(baseName + format::kDataSuffix), mIndex(baseName + format::kIndexSuffix) {}

bool ArchiveWriter::HasRoomFor(std::size_t size) const { return mSize + size <= format::kMaxPictureOffset; }

void ArchiveWriter::Add(std::uint32_t id, std::span<const std::uint8_t> bytes) {
  std::uint8_t record[format::kRecordSize];
  StoreLittle32(record + format::kIdAt, id);
  StoreLittle32(record + format::kOffsetAt, static_cast<std::uint32_t>(mSize));
  StoreLittle32(record + format::kSizeAt, static_cast<std::uint32_t>(bytes.size()));
  mSize += bytes.size();
  if (!mData.Write(bytes.data(), bytes.size()) || !mIndex.Write(record, sizeof record)) mFailed = true;
}

// The data file first: between the two renames the old index may point at wrong entries, which the client checks.
bool ArchiveWriter::Commit() { return !mFailed && mData.Commit() && mIndex.Commit(); }

}  // namespace tolva
