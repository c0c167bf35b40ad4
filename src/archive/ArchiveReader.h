#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "archive/ArchiveIndex.h"
#include "archive/PngCheck.h"

namespace tolva {

// Why an archive cannot deliver an entry.
enum class ArchiveFault {
  None,
  NoEntry,          // the index does not have the id
  NoDataFile,       // the data file is missing or cannot be opened
  OffsetTooLarge,   // a picture cannot start there
  OutsideDataFile,  // the entry does not lie inside the data file
  UnsoundPicture,   // what starts there fails PngCheck
  NotWritten        // the target file cannot be written
};

// Reads the entries of one archive: the index `<base name>.cci` and the data file `<base name>.cca`. Keeps no file
// open, so a new pair of files counts from the next call on. For one thread.
class ArchiveReader {
 public:
  // `baseName` is a path without its suffix. Opens nothing yet; the index starts empty.
  explicit ArchiveReader(const std::string& baseName);

  // Reads the index file. The other operations use what the last call found.
  ArchiveIndex::State ReadIndex() { return mIndex.Read(mIndexPath); }
  const ArchiveIndex::Entries& GetEntries() const { return mIndex.GetEntries(); }
  const std::string& GetDataPath() const { return mDataPath; }

  // The PNG file of a picture, for which the decoder is safe; empty unless `fault` is None. A picture ends at its own
  // end chunk: the size in the index does not count.
  struct Picture {
    ArchiveFault fault = ArchiveFault::None;
    std::vector<std::uint8_t> png;
    PngHeader header{};
  };
  Picture ReadPicture(std::uint32_t id) const;

  // Copies the entry into the file `path`, replacing its content. With any fault the target stays as it was.
  ArchiveFault Extract(std::uint32_t id, const std::string& path) const;

 private:
  ArchiveIndex mIndex;
  std::string mIndexPath;
  std::string mDataPath;
};

}  // namespace tolva
