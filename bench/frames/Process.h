#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace tolva::bench {

// A pipe, of which a process that is started inherits the end for writing.
class Pipe {
 public:
  Pipe();
  ~Pipe();
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int GetWriteEnd() const { return mWrite; }
  // Once the process that writes has been started, so that its end is noticed.
  void CloseWriteEnd();
  // Waits for `count` bytes; throws std::runtime_error when they do not come.
  void Read(void* to, std::size_t count);

 private:
  int mRead = -1;
  int mWrite = -1;
};

// Starts the program, found by PATH, with its output thrown away. `variables` are NAME=VALUE pairs that replace those
// of this process. Throws std::runtime_error when that fails.
pid_t Start(const std::vector<std::string>& command, const std::vector<std::string>& variables = {});

// Ends the process by the signal and waits until it is gone.
void End(pid_t process, int signal);

}  // namespace tolva::bench
