#pragma once

#include <cstdint>

namespace tolva {

// Where an entry lies in the data file, in bytes.
struct ArchiveEntry {
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

}  // namespace tolva
