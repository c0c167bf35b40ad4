#pragma once

#include <cstdint>
#include <deque>

#include "foundation/IniSection.h"

namespace tolva {

// A settings file in memory: sections of key-value pairs, loaded once, read and changed, and saved on request. For one
// thread. When several sections have the same name, look-ups and changes go to the first.
class Ini {
 public:
  // Loads the file; at most 255 characters of its name are kept. A file that is missing or not writable gives an Ini
  // without sections.
  explicit Ini(const char* fileName);
  virtual ~Ini() = default;

  Ini(const Ini&) = delete;
  Ini& operator=(const Ini&) = delete;

  // Drops everything and reads the file again, skipping lines that are neither a section's header nor a pair. Returns
  // the number of sections read.
  std::int32_t Load();
  // Writes all sections to the file, without the lines that Load skipped. A new file replaces the old one, or the
  // target of a link, when it is complete, so a full disk loses nothing. If no file can be made beside it, or it is not
  // a regular file, it is written in place. Throws an Error when it cannot be written.
  void Save() const;

  // The value as it stands in the file, or null when the section or the key is missing. The Ini owns the text, which
  // stays valid until the pair is changed, the file is loaded again or the Ini is destroyed.
  const char* GetValue(const char* section, const char* key) const;
  // Sets the value; a section that does not exist is added at the end.
  void SetValue(const char* section, const char* key, const char* value);

 private:
  void TakeLine(char* line);

  char mFileName[256];
  std::deque<IniSection> mSections;  // a deque: values that were handed out stay valid when sections are added
};

}  // namespace tolva
