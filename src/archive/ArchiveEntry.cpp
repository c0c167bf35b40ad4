#include "archive/ArchiveEntry.h"

#include <algorithm>
#include <vector>

#include "foundation/AtomicFile.h"
#include "foundation/RegularFile.h"

namespace tolva {
namespace {

// Entries are copied in pieces, so that a large one needs little memory.
constexpr std::uint32_t kPieceSize = 1U << 16;

}  // namespace

bool ArchiveEntry::IsWithin(const RegularFile& data) const {
  return data.IsOpen() && std::uint64_t{offset} + size <= data.GetSize();
}

bool ArchiveEntry::CopyTo(const RegularFile& data, const std::string& path) const {
  if (!IsWithin(data)) return false;
  AtomicFile target(path);
  std::vector<char> piece(std::min(size, kPieceSize));
  for (std::uint32_t done = 0; done < size;) {
    const std::uint32_t count = std::min(size - done, kPieceSize);
    if (!data.ReadAt(std::uint64_t{offset} + done, piece.data(), count)) return false;
    if (!target.Write(piece.data(), count)) return false;
    done += count;
  }
  return target.Commit();
}

}  // namespace tolva
