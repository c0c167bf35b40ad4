#pragma once

#include <cstdint>

namespace tolva {

// A failure on its way to the place that reports it: where and when it was first seen, and a message. Created with
// `new` and thrown as a pointer; the ErrHandler that reports it deletes it. Never crosses threads.
class Error {
 public:
  // Longer texts are cut to 127, 127 and 511 characters.
  Error(const char* module, const char* method);
  Error(const char* module, const char* method, const char* message);
  virtual ~Error() = default;

  Error(const Error&) = delete;
  Error& operator=(const Error&) = delete;

  const char* GetModule() const { return mModule; }
  const char* GetMethod() const { return mMethod; }
  const char* GetMessage() const { return mMessage; }
  // GetTicks at construction.
  std::uint32_t GetTick() const { return mTick; }

 private:
  char mModule[128];
  char mMethod[128];
  char mMessage[512];
  std::uint32_t mTick;
};

}  // namespace tolva
