#include "foundation/Ini.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/AtomicFile.h"
#include "foundation/Descriptor.h"
#include "foundation/Guard.h"
#include "foundation/Text.h"

namespace tolva {
namespace {

constexpr std::size_t kLineCapacity = 255;  // a longer line is read as several

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// Replaces the content of `file`, which is open for writing under `path`: by a new file if possible, else in place.
bool Replace(const char* path, const Descriptor& file, const std::string& text) {
  struct stat facts;
  const bool isRegular = ::fstat(file.Get(), &facts) == 0 && S_ISREG(facts.st_mode);
  std::error_code fault;
  const std::filesystem::path target = std::filesystem::canonical(path, fault);
  if (isRegular && !fault) {
    AtomicFile replacement(target.string());
    if (replacement.CopyRights(file)) return replacement.Write(text.data(), text.size()) && replacement.Commit();
  }
  if (!file.WriteAll(text.data(), text.size())) return false;
  return !isRegular || ::ftruncate(file.Get(), static_cast<off_t>(text.size())) == 0;
}

// The first section of that name, or null.
template <typename Sections>
auto* Find(Sections& sections, const char* name) {
  const auto found = std::ranges::find_if(sections, [&](const IniSection& section) {
    return name != nullptr && section.GetName() != nullptr && std::strcmp(section.GetName(), name) == 0;
  });
  return found == sections.end() ? nullptr : &*found;
}

}  // namespace

Ini::Ini(const char* fileName) {
  Guard("Ini", "Ini", [&] {
    CopyText(mFileName, fileName);
    Load();
  });
}

std::int32_t Ini::Load() {
  return Guard("Ini", "Load", [&] {
    mSections.clear();
    // Opening a pipe would wait for the other side, and reading a device might never end.
    std::error_code fault;
    if (!std::filesystem::is_regular_file(mFileName, fault)) return 0;
    // "r+" because settings that could not be saved are not loaded either.
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(mFileName, "r+"));
    char line[kLineCapacity];
    while (file && std::fgets(line, sizeof line, file.get()) != nullptr) TakeLine(line);
    return static_cast<std::int32_t>(mSections.size());
  });
}

void Ini::TakeLine(char* line) {
  if (line[0] == '[') {
    if (char* end = std::strchr(line, ']')) *end = '\0';
    mSections.emplace_back(line + 1);
    return;
  }
  char* rest = nullptr;
  const char* key = strtok_r(line, "=\n", &rest);
  const char* value = strtok_r(nullptr, "=\n", &rest);
  if (value != nullptr && !mSections.empty()) mSections.back().SetValue(key, value);
}

void Ini::Save() const {
  Guard("Ini", "Save", [&] {
    std::ostringstream stream;
    for (const IniSection& section : mSections) section.Print(stream);
    // Creates the file, through a link as well, but neither empties it nor waits for the reader of a pipe.
    const Descriptor old(::open(mFileName, O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666));
    if (!old.IsOpen() || !Replace(mFileName, old, stream.str())) {
      throw new Error("Ini", "WriteIni", "Unable to open ini file");
    }
  });
}

const char* Ini::GetValue(const char* section, const char* key) const {
  return Guard("Ini", "GetValue", [&] {
    const IniSection* found = Find(mSections, section);
    return found == nullptr ? nullptr : found->GetValue(key);
  });
}

void Ini::SetValue(const char* section, const char* key, const char* value) {
  Guard("Ini", "SetValue", [&] {
    if (Find(mSections, section) == nullptr) mSections.emplace_back(section);
    Find(mSections, section)->SetValue(key, value);
  });
}

}  // namespace tolva
