#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "archive/ArchiveIndex.h"
#include "foundation/RegularFile.h"

namespace tolva {

// Looks into an archive for people, who want to hear what is wrong with it.
class ArchiveReader {
 public:
  explicit ArchiveReader(const std::string& baseName);

  // Why the archive cannot be opened; null when it is open.
  const char* GetFault() const { return mFault; }
  struct Listing {
    // One line for each entry, sorted by id: id, offset, size, kind, and for a picture its width and height; instead of
    // these what is wrong with the entry.
    std::string text;
    std::size_t brokenEntries = 0;
  };
  Listing List() const;
  // Copies the entry into the file. Returns what stood in the way, or null.
  const char* Extract(std::uint32_t id, const std::string& path) const;

 private:
  struct Description {
    std::string text;
    bool isBroken = false;
  };
  Description Describe(const ArchiveEntry& entry) const;

  ArchiveIndex mIndex;
  RegularFile mData;
  const char* mFault = nullptr;
};

}  // namespace tolva
