#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tolva {

// Collects files under their ids and packs them into an archive, sorted by id: the same files give the same bytes. A
// file that the client could not use is refused, and with any refusal nothing is written.
class ArchivePacker {
 public:
  // A larger file is refused.
  static constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 28;

  // The id that a text names: a decimal number from 1 to 4294967295 without leading zeros. 0 when it names none.
  static std::uint32_t ParseId(const std::string& text);

  // Adds every file of the folder; each is named by its id, with any suffix.
  void AddFolder(const std::filesystem::path& folder);
  void AddFile(std::uint32_t id, const std::filesystem::path& path);

  // Writes the archive. False when something was or is now refused, or the files cannot be written.
  bool Pack(const std::string& baseName);

  // One line for each refusal: the file and the reason.
  const std::vector<std::string>& GetRefusals() const { return mRefusals; }
  std::size_t GetCount() const { return mPaths.size(); }

 private:
  void Refuse(const std::filesystem::path& path, const std::string& reason);
  // The file's bytes; empty, and refused, when they are of no use.
  std::vector<std::uint8_t> Load(const std::filesystem::path& path);

  std::map<std::uint32_t, std::filesystem::path> mPaths;
  std::vector<std::string> mRefusals;
};

}  // namespace tolva
