#pragma once

#include <cstdint>
#include <deque>

#include "foundation/IniSection.h"

namespace tolva {

// A settings file of sections and key-value pairs, held in memory: read once, asked and changed, written back on
// request. For one thread. Several sections may have the same name; look-ups and changes go to the first.
class Ini {
 public:
  // Loads the file; at most 255 characters of its name are kept. A file that is missing or not writable gives an Ini
  // without sections.
  explicit Ini(const char* fileName);
  virtual ~Ini() = default;

  Ini(const Ini&) = delete;
  Ini& operator=(const Ini&) = delete;

  // Forgets everything and reads the file again. Returns the number of sections read. What is neither a section's
  // header nor a pair is skipped.
  std::int32_t Load();
  // Rewrites the file from memory; what Load skipped is gone then. The new file takes the place of the old one, or of
  // what a link leads to, when it is whole, so a full disk costs nothing. Only where no file can be made beside it, or
  // where it is no regular file, it is written in place. Throws an Error when it cannot be written.
  void Save() const;

  // The value as written in the file, or null when the section or the key is missing. It stays valid until the pair is
  // changed, the file is loaded again or the Ini goes away.
  const char* GetValue(const char* section, const char* key) const;
  // Sets the value; a section of a new name is added at the end.
  void SetValue(const char* section, const char* key, const char* value);

 private:
  const IniSection* Find(const char* section) const;
  void TakeLine(char* line);

  char mFileName[256];
  std::deque<IniSection> mSections;  // a deque, so that values handed out stay where they are when sections are added
};

}  // namespace tolva
