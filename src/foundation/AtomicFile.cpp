#include "foundation/AtomicFile.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolva {
namespace {

constexpr mode_t kRightsMask = 07777;

// Renaming over a device or a pipe would replace it by a file.
bool MayBeReplaced(const std::string& path) {
  struct stat facts;
  if (::stat(path.c_str(), &facts) != 0) return errno == ENOENT;
  return S_ISREG(facts.st_mode);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& path) : mPath(path), mTemporaryPath(path + ".part") {
  if (!MayBeReplaced(mPath)) return;
  // A file left by a killed process would make O_EXCL fail, which is there to keep the file from following a link.
  ::unlink(mTemporaryPath.c_str());
  mFile = Descriptor(::open(mTemporaryPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
}

AtomicFile::~AtomicFile() {
  if (IsOpen()) ::unlink(mTemporaryPath.c_str());
}

bool AtomicFile::CopyRights(const Descriptor& other) {
  struct stat from, own;
  if (!IsOpen() || ::fstat(other.Get(), &from) != 0 || ::fstat(mFile.Get(), &own) != 0) return false;
  const bool sameOwner = from.st_uid == own.st_uid && from.st_gid == own.st_gid;
  // The owner first: changing it may clear bits of the mode.
  return (sameOwner || ::fchown(mFile.Get(), from.st_uid, from.st_gid) == 0) &&
         ::fchmod(mFile.Get(), from.st_mode & kRightsMask) == 0;
}

bool AtomicFile::Write(const void* bytes, std::size_t count) {
  mFailed = mFailed || !IsOpen() || !mFile.WriteAll(bytes, count);
  return !mFailed;
}

bool AtomicFile::Commit() {
  if (!IsOpen()) return false;
  const bool isClosed = mFile.Close();
  if (isClosed && !mFailed && std::rename(mTemporaryPath.c_str(), mPath.c_str()) == 0) return true;
  ::unlink(mTemporaryPath.c_str());
  return false;
}

}  // namespace tolva
