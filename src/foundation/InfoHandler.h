#pragma once

#include "foundation/Info.h"

namespace tolva {

// Writes records to the log file `log.clf` in the working directory. Every thread object owns one; all append to the
// same file. The first one that a process constructs empties the file, so it holds the last run only.
class InfoHandler {
 public:
  InfoHandler();
  virtual ~InfoHandler() = default;

  // The name that marks this writer's records, at most 21 characters (longer ones are cut).
  void SetModuleName(const char* name);

  // Writes the record if its level is a written one, and deletes it. A record that cannot be written is dropped: the
  // log must never stop the program.
  void HandleInfo(Info* info);

 private:
  char mModuleName[22] = "";
  char mLine[514] = "";
};

}  // namespace tolva
