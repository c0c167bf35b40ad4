#pragma once

#include <cstdint>
#include <string>

namespace tolva {

class RegularFile;

// The place of an entry in the data file, in bytes.
struct ArchiveEntry {
  std::uint32_t offset = 0;
  std::uint32_t size = 0;

  bool IsWithin(const RegularFile& data) const;
  // Copies the entry into the file `path`, replacing its content. False when the entry does not lie inside the data
  // file or the target cannot be written; the target then stays as it was.
  bool CopyTo(const RegularFile& data, const std::string& path) const;
};

}  // namespace tolva
