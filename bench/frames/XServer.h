#pragma once

#include <string>

#include <sys/types.h>

namespace tolva::bench {

// An X server without a monitor, which ends with this object.
class XServer {
 public:
  // Returns when the server takes connections. Throws std::runtime_error when it does not start.
  XServer();
  ~XServer();
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  // For the variable DISPLAY.
  const std::string& GetName() const { return mName; }

 private:
  pid_t mProcess = 0;
  std::string mName = ":";
};

}  // namespace tolva::bench
