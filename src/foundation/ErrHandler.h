#pragma once

#include "foundation/InfoHandler.h"
#include "foundation/LogRateLimiter.h"

namespace tolva {

class Error;

// Reports errors: writes one log line for each. Each thread object owns one and is its only user.
class ErrHandler {
 public:
  ErrHandler();
  virtual ~ErrHandler() = default;

  // Logs tick, module and method of `error` (never null) but not its message, and deletes it, even if logging fails.
  // The rate limiter keeps a loop that fails in every pass from filling the disk.
  void HandleError(Error* error);

 private:
  InfoHandler mInfoHandler;
  LogRateLimiter mLimiter;
};

}  // namespace tolva
