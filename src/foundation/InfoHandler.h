#pragma once

#include "foundation/Info.h"

namespace tolva {

// A writer of the log file `log.clf` in the working directory. Every thread object owns its own; all append to the same
// file. The first one that a process constructs empties the file, so it holds the last run only.
class InfoHandler {
 public:
  InfoHandler();
  virtual ~InfoHandler() = default;

  // The name that stands in each record of this writer, at most 21 characters.
  void SetModuleName(const char* name);

  // Writes the record if its level is one that is kept, and deletes it. A record that cannot be written is dropped: the
  // log must never stand in the way of the program.
  void HandleInfo(Info* info);

 private:
  char mModuleName[22] = "";
  char mLine[514] = "";
};

}  // namespace tolva
