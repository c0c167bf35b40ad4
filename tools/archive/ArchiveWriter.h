#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "foundation/AtomicFile.h"

namespace tolva {

// Writes an archive entry by entry. The old pair of files stays as it is until Commit puts both new ones in place.
class ArchiveWriter {
 public:
  explicit ArchiveWriter(const std::string& baseName);

  // Whether an entry of so many bytes leaves the archive small enough for its index.
  bool HasRoomFor(std::size_t size) const;
  // Appends an entry, for which there is room. When it cannot be written, Commit fails.
  void Add(std::uint32_t id, std::span<const std::uint8_t> bytes);
  bool Commit();

 private:
  AtomicFile mData;
  AtomicFile mIndex;
  std::uint64_t mSize = 0;
  bool mFailed = false;
};

}  // namespace tolva
