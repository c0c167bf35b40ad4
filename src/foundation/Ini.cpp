#include "foundation/Ini.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sstream>
#include <string>

#include "foundation/Guard.h"
#include "foundation/Text.h"

namespace tolva {
namespace {

constexpr std::size_t kLineCapacity = 255;  // a longer line counts as several

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

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
    // The text is complete before the file is emptied.
    std::ostringstream stream;
    for (const IniSection& section : mSections) section.Print(stream);
    const std::string text = stream.str();

    File file(std::fopen(mFileName, "w"));
    if (!file) throw new Error("Ini", "WriteIni", "Unable to open ini file");
    const bool written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    const bool closed = std::fclose(file.release()) == 0;
    if (!written || !closed) throw new Error("Ini", "WriteIni", "Unable to write ini file");
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
