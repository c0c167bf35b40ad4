#include "tools/archive/ArchivePacker.h"

#include <algorithm>
#include <charconv>

#include "foundation/RegularFile.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/archive/FileKind.h"
#include "tools/archive/PictureCheck.h"

namespace tolva {

std::uint32_t ArchivePacker::ParseId(const std::string& text) {
  std::uint32_t id = 0;
  const char* end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, id);
  return fault == std::errc() && stop == end && text.front() != '0' ? id : 0;
}

void ArchivePacker::AddFolder(const std::filesystem::path& folder) {
  std::error_code fault;
  std::vector<std::filesystem::path> files;
  for (std::filesystem::directory_iterator at(folder, fault), end; !fault && at != end; at.increment(fault)) {
    files.push_back(at->path());
  }
  if (fault) return Refuse(folder, "the folder cannot be read: " + fault.message());
  // A folder's order differs from machine to machine.
  std::sort(files.begin(), files.end());
  for (const auto& file : files) AddFile(ParseId(file.stem().string()), file);
}

void ArchivePacker::AddFile(std::uint32_t id, const std::filesystem::path& path) {
  if (id == 0) return Refuse(path, "its name is not an id, a number from 1 to 4294967295");
  const auto [added, isNew] = mPaths.try_emplace(id, path);
  if (!isNew) Refuse(path, "its id is taken by " + added->second.string());
}

bool ArchivePacker::Pack(const std::string& baseName) {
  if (mPaths.empty() && mRefusals.empty()) Refuse(baseName, "there is nothing to pack");
  ArchiveWriter writer(baseName);
  for (const auto& [id, path] : mPaths) {
    const std::vector<std::uint8_t> bytes = Load(path);
    if (!mRefusals.empty()) continue;
    if (writer.HasRoomFor(bytes.size())) {
      writer.Add(id, bytes);
    } else {
      Refuse(path, "with it the archive would exceed 2 GB");
    }
  }
  if (mRefusals.empty() && !writer.Commit()) Refuse(baseName, "the archive cannot be written");
  return mRefusals.empty();
}

void ArchivePacker::Refuse(const std::filesystem::path& path, const std::string& reason) {
  mRefusals.push_back(path.string() + ": " + reason);
}

std::vector<std::uint8_t> ArchivePacker::Load(const std::filesystem::path& path) {
  const RegularFile file(path);
  std::vector<std::uint8_t> bytes;
  const auto refuse = [&](const std::string& reason) {
    Refuse(path, reason);
    return std::vector<std::uint8_t>();
  };
  if (!file.IsOpen()) return refuse("it is not a file that can be read");
  if (file.GetSize() > kMaxFileSize) return refuse("it is larger than 256 MB");
  bytes.resize(file.GetSize());
  if (!file.ReadAt(0, bytes.data(), bytes.size())) return refuse("it cannot be read");

  const FileKind kind = DetectKind(bytes);
  if (kind == FileKind::Unknown)
    return refuse("it is not a PNG picture, a TrueType or OpenType font, or Ogg Vorbis music");
  if (kind != FileKind::Picture) return bytes;
  const std::string fault = FindPictureFault(bytes);
  return fault.empty() ? bytes : refuse(fault);
}

}  // namespace tolva
