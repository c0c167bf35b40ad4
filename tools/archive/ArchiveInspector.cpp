#include "tools/archive/ArchiveInspector.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "archive/PngCheck.h"
#include "tools/archive/FileKind.h"

namespace tolva {
namespace {

const char* FaultOf(ArchiveIndex::State state) {
  switch (state) {
    case ArchiveIndex::State::Whole:
      return nullptr;
    case ArchiveIndex::State::CutShort:
      return "its index file (.cci) is cut short";
    case ArchiveIndex::State::Missing:
      return "there is no index file (.cci)";
    case ArchiveIndex::State::Unreadable:
      break;
  }
  return "its index file (.cci) cannot be read";
}

}  // namespace

ArchiveInspector::ArchiveInspector(const std::string& baseName)
    : mReader(baseName), mData(mReader.GetDataPath()), mFault(FaultOf(mReader.ReadIndex())) {
  if (mFault == nullptr && !mData.IsOpen()) mFault = "there is no data file (.cca) that can be read";
}

ArchiveInspector::Listing ArchiveInspector::List() const {
  Listing listing;
  for (const auto& [id, entry] : mReader.GetEntries()) {
    char numbers[48];
    std::snprintf(numbers, sizeof numbers, "%10u %10u %10u ", id, entry.offset, entry.size);
    const Description description = Describe(entry);
    listing.text += numbers + description.text + "\n";
    if (description.isBroken) ++listing.brokenEntries;
  }
  return listing;
}

ArchiveInspector::Description ArchiveInspector::Describe(const ArchiveEntry& entry) const {
  if (!entry.IsWithin(mData)) return {"outside the data file", true};
  std::vector<std::uint8_t> start(std::min<std::size_t>(entry.size, kKindBytes));
  if (!mData.ReadAt(entry.offset, start.data(), start.size())) return {"unreadable", true};
  const FileKind kind = DetectKind(start);
  if (kind != FileKind::Picture) return {GetKindName(kind)};
  const PngCheck png(mData, entry.offset);
  if (!png.IsSound()) return {std::string("broken picture: ") + png.GetFault(), true};
  return {std::string(GetKindName(kind)) + " " + std::to_string(png.GetHeader().width) + "x" +
          std::to_string(png.GetHeader().height)};
}

const char* ArchiveInspector::Extract(std::uint32_t id, const std::string& path) const {
  switch (mReader.Extract(id, path)) {
    case ArchiveFault::None:
      return nullptr;
    case ArchiveFault::NoEntry:
      return "there is no such entry";
    case ArchiveFault::OutsideDataFile:
      return "it lies outside the data file";
    default:
      return "the file cannot be written";
  }
}

}  // namespace tolva
