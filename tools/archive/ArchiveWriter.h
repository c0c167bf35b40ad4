#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "foundation/ReplacingFile.h"

namespace tolva {

// Writes an archive entry by entry. The old pair of files stays as it is until Commit puts both new ones in place.
class ArchiveWriter {
 public:
  explicit ArchiveWriter(const std::string& baseName);

  // Appends an entry. False when it cannot be written or the archive would grow beyond what its index can tell; Commit
  // then fails too.
  bool Add(std::uint32_t id, std::span<const std::uint8_t> bytes);
  bool Commit();

 private:
  ReplacingFile mData;
  ReplacingFile mIndex;
  std::uint64_t mSize = 0;
  bool mFailed = false;
};

}  // namespace tolva
