#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tolva {

// Collects files by id and packs them into an archive, sorted by id, so the same files give the same bytes. Refuses
// files that the client cannot use, and writes nothing if it refuses any.
class ArchivePacker {
 public:
  static constexpr std::uint64_t kMaxFileSize = std::uint64_t{1} << 28;

  // The id as a number: decimal, 1 to 4294967295, without leading zeros. 0 for any other text.
  static std::uint32_t ParseId(const std::string& text);

  // Adds every file of the folder; a file's name is its id and any suffix.
  void AddFolder(const std::filesystem::path& folder);
  void AddFile(std::uint32_t id, const std::filesystem::path& path);

  // Writes the archive. False when a file was refused, or is refused now, or the archive cannot be written.
  bool Pack(const std::string& baseName);

  // A line for each refusal: the file and the reason.
  const std::vector<std::string>& GetRefusals() const { return mRefusals; }
  std::size_t GetCount() const { return mPaths.size(); }

 private:
  void Refuse(const std::filesystem::path& path, const std::string& reason);
  // The file's bytes; empty if it is refused.
  std::vector<std::uint8_t> Load(const std::filesystem::path& path);

  std::map<std::uint32_t, std::filesystem::path> mPaths;
  std::vector<std::string> mRefusals;
};

}  // namespace tolva
