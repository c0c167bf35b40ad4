#include "foundation/RegularFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolva {

// Without O_NONBLOCK, opening a pipe would wait for a writer.
RegularFile::RegularFile(const std::string& path)
    : mFile(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
  struct stat facts;
  if (!mFile.IsOpen()) return;
  if (::fstat(mFile.Get(), &facts) == 0 && S_ISREG(facts.st_mode)) {
    mSize = static_cast<std::uint64_t>(facts.st_size);
  } else {
    mFile.Close();
  }
}

bool RegularFile::ReadAt(std::uint64_t offset, void* to, std::size_t count) const {
  if (!IsOpen() || offset > mSize || count > mSize - offset) return false;
  auto* next = static_cast<char*>(to);
  while (count > 0) {
    const ssize_t got = ::pread(mFile.Get(), next, count, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    // The file may have been truncated since it was opened.
    if (got <= 0) return false;
    next += got;
    offset += static_cast<std::uint64_t>(got);
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace tolva
