#pragma once

namespace tolva {

// Holds a flag at `value` for a scope and leaves it at the opposite, also when an error leaves the scope.
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
