#pragma once

#include <cstddef>
#include <string>

#include "foundation/Descriptor.h"

namespace tolva {

// Writes a file under a temporary name in the same directory and renames it when it is complete. A write that fails
// leaves the old content alone, and whoever is reading the old file goes on reading it.
class AtomicFile {
 public:
  // Opens the temporary file, `path` with ".part" appended. Fails unless `path` is a regular file or does not exist.
  explicit AtomicFile(const std::string& path);
  // Removes the temporary file unless it was committed.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  bool IsOpen() const { return mFile.IsOpen(); }
  // Gives the new file the mode and owner of `other`. False when the system does not allow that.
  bool CopyRights(const Descriptor& other);
  // False when the bytes could not be written; Commit then fails too.
  bool Write(const void* bytes, std::size_t count);
  // Puts the new file in place. False when it could not be opened, written or renamed.
  bool Commit();

 private:
  std::string mPath;
  std::string mTemporaryPath;
  Descriptor mFile;
  bool mFailed = false;
};

}  // namespace tolva
