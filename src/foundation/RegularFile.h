#pragma once

#include <cstddef>
#include <cstdint>

namespace tolva {

// A regular file opened for reading. Anything else under the name (a directory, a pipe, a device) counts as a file that
// cannot be opened, so that opening never waits and the size is known. Used by one thread at a time.
class RegularFile {
 public:
  RegularFile() = default;
  explicit RegularFile(const char* path) { Open(path); }
  ~RegularFile() { Close(); }
  RegularFile(const RegularFile&) = delete;
  RegularFile& operator=(const RegularFile&) = delete;

  // Closes what was open before. False when there is no such regular file or it may not be read.
  bool Open(const char* path);
  void Close();

  bool IsOpen() const { return mDescriptor >= 0; }
  // The size in bytes when the file was opened; 0 when none is open.
  std::uint64_t GetSize() const { return mSize; }
  // Reads exactly `count` bytes that start `offset` bytes into the file. False, with `to` undefined, when there are
  // fewer or the reading fails.
  bool ReadAt(std::uint64_t offset, void* to, std::size_t count) const;

 private:
  int mDescriptor = -1;
  std::uint64_t mSize = 0;
};

}  // namespace tolva
