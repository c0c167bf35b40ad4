#include "foundation/Ini.h"

#include <algorithm>
#include <cerrno>
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
#include "foundation/Guard.h"
#include "foundation/Text.h"

namespace tolva {
namespace {

constexpr std::size_t kLineCapacity = 255;  // a longer line counts as several

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

class Descriptor {
 public:
  explicit Descriptor(int number) : mNumber(number) {}
  ~Descriptor() {
    if (IsOpen()) ::close(mNumber);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return mNumber >= 0; }
  int Get() const { return mNumber; }

 private:
  const int mNumber;
};

bool WriteInPlace(int file, const std::string& text, bool isRegular) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t written = ::write(file, text.data() + done, text.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return !isRegular || ::ftruncate(file, static_cast<off_t>(text.size())) == 0;
}

// Puts `text` in the place of the content of the file that is open for writing under `path`.
bool Replace(const char* path, int file, const std::string& text) {
  struct stat facts;
  const bool isRegular = ::fstat(file, &facts) == 0 && S_ISREG(facts.st_mode);
  std::error_code fault;
  const std::filesystem::path target = std::filesystem::canonical(path, fault);
  if (isRegular && !fault) {
    AtomicFile replacement(target.string());
    if (replacement.TakeRights(file)) return replacement.Write(text.data(), text.size()) && replacement.Commit();
  }
  return WriteInPlace(file, text, isRegular);
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
    // A pipe would keep us waiting, and a device may never end.
    std::error_code fault;
    if (!std::filesystem::is_regular_file(mFileName, fault)) return 0;
    // Settings that could not be written back are not taken in either, hence "r+".
    const File file(std::fopen(mFileName, "r+"));
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
    // Creates the file, also the one that a link leads to, but neither empties it nor waits for the reader of a pipe.
    const Descriptor old(::open(mFileName, O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666));
    if (!old.IsOpen() || !Replace(mFileName, old.Get(), stream.str())) {
      throw new Error("Ini", "WriteIni", "Unable to open ini file");
    }
  });
}

const char* Ini::GetValue(const char* section, const char* key) const {
  return Guard("Ini", "GetValue", [&] {
    const IniSection* found = Find(section);
    return found == nullptr ? nullptr : found->GetValue(key);
  });
}

void Ini::SetValue(const char* section, const char* key, const char* value) {
  Guard("Ini", "SetValue", [&] {
    if (Find(section) == nullptr) mSections.emplace_back(section);
    const_cast<IniSection*>(Find(section))->SetValue(key, value);
  });
}

const IniSection* Ini::Find(const char* section) const {
  const auto found = std::ranges::find_if(mSections, [&](const IniSection& candidate) {
    return section != nullptr && candidate.GetName() != nullptr && std::strcmp(candidate.GetName(), section) == 0;
  });
  return found == mSections.end() ? nullptr : &*found;
}

}  // namespace tolva
