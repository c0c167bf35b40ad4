#pragma once

#include <cstddef>
#include <string>

namespace tolva {

// A file that is written under a temporary name in the same directory and takes its own name only when it is whole: a
// write that fails leaves the old content alone, and whoever still reads the old file goes on reading it.
class AtomicFile {
 public:
  // Opens the temporary file, `path` with ".part" appended. Only a regular file, or nothing, may stand under `path`.
  explicit AtomicFile(const std::string& path);
  // Removes the temporary file unless it was committed.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  bool IsOpen() const { return mDescriptor >= 0; }
  // Gives the new file the mode and the owner of the one that is open under the descriptor. False when it may not have
  // them.
  bool TakeRights(int descriptor);
  // False when the bytes could not be written; Commit then fails too.
  bool Write(const void* bytes, std::size_t count);
  // Puts the file in place. False when it could not be opened, written or renamed.
  bool Commit();

 private:
  std::string mPath;
  std::string mTemporaryPath;
  int mDescriptor = -1;
  bool mFailed = false;
};

}  // namespace tolva
