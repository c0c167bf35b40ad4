#include "foundation/Descriptor.h"

#include <cerrno>

#include <unistd.h>

namespace tolva {

bool Descriptor::WriteAll(const void* bytes, std::size_t count) const {
  const auto* next = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t written = ::write(mNumber, next, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    next += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

bool Descriptor::Close() { return !IsOpen() || ::close(std::exchange(mNumber, kNone)) == 0; }

}  // namespace tolva
