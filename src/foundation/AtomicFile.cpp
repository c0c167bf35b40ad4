#include "foundation/AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolva {
namespace {

// A rename would replace a device or a pipe by a file.
bool MayBeReplaced(const std::string& path) {
  struct stat facts;
  if (::stat(path.c_str(), &facts) != 0) return errno == ENOENT;
  return S_ISREG(facts.st_mode);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path) : mPath(path), mTemporaryPath(path + ".part") {
  if (!MayBeReplaced(mPath)) return;
  // What an earlier, killed process left is in the way of O_EXCL, which keeps the file from following a link.
  ::unlink(mTemporaryPath.c_str());
  mDescriptor = ::open(mTemporaryPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

AtomicFile::~AtomicFile() {
  if (!IsOpen()) return;
  ::close(mDescriptor);
  ::unlink(mTemporaryPath.c_str());
}

bool AtomicFile::TakeRights(int descriptor) {
  struct stat old, own;
  if (!IsOpen() || ::fstat(descriptor, &old) != 0 || ::fstat(mDescriptor, &own) != 0) return false;
  const bool sameOwner = old.st_uid == own.st_uid && old.st_gid == own.st_gid;
  // The owner first: changing it may clear bits of the mode.
  return (sameOwner || ::fchown(mDescriptor, old.st_uid, old.st_gid) == 0) &&
         ::fchmod(mDescriptor, old.st_mode & 07777) == 0;
}

bool AtomicFile::Write(const void* bytes, std::size_t count) {
  const auto* next = static_cast<const char*>(bytes);
  while (count > 0 && IsOpen() && !mFailed) {
    const ssize_t written = ::write(mDescriptor, next, count);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) {
      mFailed = true;
      break;
    }
    next += written;
    count -= static_cast<std::size_t>(written);
  }
  return IsOpen() && !mFailed;
}

bool AtomicFile::Commit() {
  if (!IsOpen()) return false;
  const bool closed = ::close(std::exchange(mDescriptor, -1)) == 0;
  if (closed && !mFailed && std::rename(mTemporaryPath.c_str(), mPath.c_str()) == 0) return true;
  ::unlink(mTemporaryPath.c_str());
  return false;
}

}  // namespace tolva
