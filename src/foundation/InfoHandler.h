#pragma once

#include "foundation/Info.h"

namespace tolva {

// Writes records to `log.clf` in the working directory. Each thread object has its own writer, and all of them append
// to that one file. The first one that a process constructs empties the file, so it holds the last run only.
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
