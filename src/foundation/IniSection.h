#pragma once

#include <deque>
#include <optional>
#include <ostream>
#include <string>

namespace tolva {

// One section of an ini file: a name and key-value pairs in the order in which they were added. Names and keys are
// compared exactly. Null texts given as key or value count as empty.
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

  // The key's value, or null. It stays valid until this key is set again or the section goes away.
  const char* GetValue(const char* key) const;
  // Replaces the value of an existing key, or appends the pair.
  void SetValue(const char* key, const char* value);

  // Writes the section as it stands in a file: the name in brackets, if there is one, then a line for each pair.
  void Print(std::ostream& stream) const;

 private:
  struct Pair {
    std::string key;
    std::string value;
  };

  std::optional<std::string> mName;
  std::deque<Pair> mPairs;  // a deque, so that the texts handed out stay where they are when pairs are added
};

}  // namespace tolva
