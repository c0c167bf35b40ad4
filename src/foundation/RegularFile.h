#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "foundation/Descriptor.h"

namespace tolva {

// A regular file, open for reading. A directory, a pipe or a device does not open, so opening never waits and the size
// is known. Used by one thread at a time.
class RegularFile {
 public:
  // Not open afterwards when there is no such regular file or it may not be read.
  explicit RegularFile(const std::string& path);

  bool IsOpen() const { return mFile.IsOpen(); }
  // The size in bytes when the file was opened; 0 when it is not open.
  std::uint64_t GetSize() const { return mSize; }
  // Reads exactly `count` bytes from `offset` on. When the file has fewer or reading fails, returns false and `to` is
  // undefined.
  bool ReadAt(std::uint64_t offset, void* to, std::size_t count) const;

 private:
  Descriptor mFile;
  std::uint64_t mSize = 0;
};

}  // namespace tolva
