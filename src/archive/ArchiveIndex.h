#pragma once

#include <cstdint>
#include <map>

#include "archive/ArchiveEntry.h"

namespace tolva {

// What an archive's index file says: where in the data file each id lies.
class ArchiveIndex {
 public:
  // Takes up what the file holds now. An absent or empty file gives an empty index; of two records for one id the later
  // one counts; what follows the last whole record is ignored. False when something is there that cannot be read: the
  // index then stays as it was.
  bool Read(const char* path);

  // The entry of the id, or null.
  const ArchiveEntry* Find(std::uint32_t id) const;
  const std::map<std::uint32_t, ArchiveEntry>& GetEntries() const { return mEntries; }

 private:
  std::map<std::uint32_t, ArchiveEntry> mEntries;
};

}  // namespace tolva
