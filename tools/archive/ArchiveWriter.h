#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "foundation/AtomicFile.h"

namespace tolva {

// Writes an archive entry by entry. Commit replaces the old pair of files; until then it stays as it is.
class ArchiveWriter {
 public:
  explicit ArchiveWriter(const std::string& baseName);

  // Whether the data file stays within the limit of 2 GB with another entry of `size` bytes.
  bool HasRoomFor(std::size_t size) const;
  // Appends an entry, for which HasRoomFor must be true. If writing fails, Commit fails.
  void Add(std::uint32_t id, std::span<const std::uint8_t> bytes);
  bool Commit();

 private:
  AtomicFile mData;
  AtomicFile mIndex;
  std::uint64_t mSize = 0;
  bool mFailed = false;
};

}  // namespace tolva
