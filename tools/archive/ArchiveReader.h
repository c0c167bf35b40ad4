#pragma once

#include <cstdint>
#include <string>

#include "foundation/RegularFile.h"
#include "media/ArchiveIndex.h"

namespace tolva {

// Looks into an archive for people, who want to hear what is wrong with it.
class ArchiveReader {
 public:
  explicit ArchiveReader(const std::string& baseName);

  // Why the archive cannot be opened; null when it is open.
  const char* GetFault() const { return mFault; }
  // One line for each entry, sorted by id: id, offset, size, kind, and for a picture its width and height.
  std::string List() const;
  // Copies the entry into the file. Returns what stood in the way, or null.
  const char* Extract(std::uint32_t id, const std::string& path) const;

 private:
  std::string Describe(const ArchiveEntry& entry) const;

  ArchiveIndex mIndex;
  RegularFile mData;
  const char* mFault = nullptr;
};

}  // namespace tolva
