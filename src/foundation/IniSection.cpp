#include "foundation/IniSection.h"

#include <algorithm>

#include "foundation/Guard.h"

namespace tolva {
namespace {

const char* OrEmpty(const char* text) { return text == nullptr ? "" : text; }

}  // namespace

IniSection::IniSection(const char* name) {
  Guard("IniSection", "IniSection(strName)", [&] { SetName(name); });
}

IniSection& IniSection::operator=(const IniSection& other) {
  Guard("IniSection", "operator=", [&] {
    IniSection copy(other);
    mName.swap(copy.mName);
    mPairs.swap(copy.mPairs);
  });
  return *this;
}

void IniSection::SetName(const char* name) {
  Guard("IniSection", "SetName", [&] {
    if (name == nullptr) {
      mName.reset();
    } else {
      mName = std::string(name);
    }
  });
}

const char* IniSection::GetValue(const char* key) const {
  const auto pair = std::ranges::find(mPairs, OrEmpty(key), &Pair::key);
  return pair == mPairs.end() ? nullptr : pair->value.c_str();
}

void IniSection::SetValue(const char* key, const char* value) {
  Guard("IniSection", "SetValue", [&] {
    const auto pair = std::ranges::find(mPairs, OrEmpty(key), &Pair::key);
    if (pair == mPairs.end()) {
      mPairs.push_back({OrEmpty(key), OrEmpty(value)});
    } else {
      pair->value = OrEmpty(value);
    }
  });
}

void IniSection::Print(std::ostream& stream) const {
  Guard("IniSection", "Print", [&] {
    if (mName) stream << '[' << *mName << "]\n";
    for (const Pair& pair : mPairs) stream << pair.key << '=' << pair.value << '\n';
  });
}

}  // namespace tolva
