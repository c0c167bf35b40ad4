#pragma once

namespace tolva {

// Sets a flag to `value` for the scope of the object and to the opposite at the scope's end, after an error too.
class FlagScope {
 public:
  FlagScope(bool& flag, bool value) : mFlag(flag), mValue(value) { mFlag = mValue; }
  ~FlagScope() { mFlag = !mValue; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& mFlag;
  const bool mValue;
};

}  // namespace tolva
