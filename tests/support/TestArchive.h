#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "foundation/ByteOrder.h"
#include "support/TempDir.h"

namespace tolva::test {

struct TestRecord {
  std::uint32_t id, offset, size;
};

inline std::string MakeIndex(const std::vector<TestRecord>& records) {
  std::string bytes;
  for (const TestRecord& record : records) {
    for (const std::uint32_t number : {record.id, record.offset, record.size}) {
      std::uint8_t word[4];
      StoreLittle32(word, number);
      bytes.append(word, word + sizeof word);
    }
  }
  return bytes;
}

// An archive with one entry, which fills the data file.
inline void WriteArchive(const std::string& baseName, std::uint32_t id, const std::string& content) {
  WriteFile(baseName + ".cci", MakeIndex({{id, 0, static_cast<std::uint32_t>(content.size())}}));
  WriteFile(baseName + ".cca", content);
}

}  // namespace tolva::test
