#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "archive/ArchiveReader.h"
#include "foundation/RegularFile.h"

namespace tolva {

// Shows people what an archive holds and what is wrong with it. Stricter than the client: a missing or torn index is a
// fault here.
class ArchiveInspector {
 public:
  explicit ArchiveInspector(const std::string& baseName);

  // Why the archive cannot be read, or null. With a fault nothing else may be called.
  const char* GetFault() const { return mFault; }

  struct Listing {
    // One line for each entry, sorted by id: id, offset, size, then its kind and a picture's size in pixels, or what is
    // wrong with the entry.
    std::string text;
    std::size_t brokenEntries = 0;
  };
  Listing List() const;

  // Copies the entry into the file. Returns why that failed, or null.
  const char* Extract(std::uint32_t id, const std::string& path) const;

 private:
  struct Description {
    std::string text;
    bool isBroken = false;
  };
  Description Describe(const ArchiveEntry& entry) const;

  ArchiveReader mReader;
  RegularFile mData;
  const char* mFault = nullptr;
};

}  // namespace tolva
