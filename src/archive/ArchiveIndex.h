#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "archive/ArchiveEntry.h"

namespace tolva {

// An archive's index in memory: where in the data file each entry lies.
class ArchiveIndex {
 public:
  using Entries = std::map<std::uint32_t, ArchiveEntry>;

  enum class State {
    Whole,      // every record was read; an empty file has none
    CutShort,   // the last record is incomplete and was ignored
    Missing,    // there is no such file: the index is empty
    Unreadable  // something is there that cannot be read: the index keeps what it held
  };

  // Replaces the index by what the file holds. If an id has several records, the last one counts.
  State Read(const std::string& path);

  // The entry of the id, or null. Valid until the next Read.
  const ArchiveEntry* Find(std::uint32_t id) const;
  const Entries& GetEntries() const { return mEntries; }

 private:
  Entries mEntries;
};

}  // namespace tolva
