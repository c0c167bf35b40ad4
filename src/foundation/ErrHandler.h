#pragma once

#include "foundation/InfoHandler.h"
#include "foundation/LogRateLimiter.h"

namespace tolva {

class Error;

// Where errors end: writes one log line per error. Each thread object owns one and is its only user.
class ErrHandler {
 public:
  ErrHandler();
  virtual ~ErrHandler() = default;

  // Logs tick, module and method of `error` (never null; its message is not logged) and deletes it, also when logging
  // fails. A loop whose every pass fails does not fill the disk: see LogRateLimiter.
  void HandleError(Error* error);

 private:
  InfoHandler mInfoHandler;
  LogRateLimiter mLimit;
};

}  // namespace tolva
