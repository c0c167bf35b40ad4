#include "foundation/RegularFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolva {

bool RegularFile::Open(const char* path) {
  Close();
  // Without O_NONBLOCK the opening of a pipe would wait for a writer.
  const int descriptor = ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return false;
  struct stat facts;
  if (::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
    ::close(descriptor);
    return false;
  }
  mDescriptor = descriptor;
  mSize = static_cast<std::uint64_t>(facts.st_size);
  return true;
}

void RegularFile::Close() {
  if (IsOpen()) ::close(mDescriptor);
  mDescriptor = -1;
  mSize = 0;
}

bool RegularFile::ReadAt(std::uint64_t offset, void* to, std::size_t count) const {
  if (!IsOpen() || offset > mSize || count > mSize - offset) return false;
  auto* next = static_cast<char*>(to);
  while (count > 0) {
    const ssize_t got = ::pread(mDescriptor, next, count, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    // The file may have become shorter since it was opened.
    if (got <= 0) return false;
    next += got;
    offset += static_cast<std::uint64_t>(got);
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace tolva
