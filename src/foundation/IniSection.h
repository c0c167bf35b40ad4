#pragma once

#include <deque>
#include <optional>
#include <ostream>
#include <string>

namespace tolva {

// One section of an ini file: a name and key-value pairs in the order in which they were added. Names and keys are
// case-sensitive. A null key or value counts as empty.
class IniSection {
 public:
  // A null name leaves the section without one.
  explicit IniSection(const char* name);
  virtual ~IniSection() = default;

  IniSection(const IniSection&) = default;
  IniSection& operator=(const IniSection& other);

  void SetName(const char* name);
  // Null for a section without a name.
  const char* GetName() const { return mName ? mName->c_str() : nullptr; }

  // The key's value, or null. The section owns the text, which stays valid until the key is set again or the section is
  // destroyed.
  const char* GetValue(const char* key) const;
  // Replaces the value of an existing key, or appends the pair.
  void SetValue(const char* key, const char* value);

  // Writes the section in the file's form: the name in brackets, if it has one, then a line for each pair.
  void Print(std::ostream& stream) const;

 private:
  struct Pair {
    std::string key;
    std::string value;
  };

  std::optional<std::string> mName;
  std::deque<Pair> mPairs;  // a deque: texts that were handed out stay valid when pairs are added
};

}  // namespace tolva
