#pragma once

#include <string>

#include "server/Reception.h"
#include "server/ServerTime.h"

namespace tolva {

class Session;

// The lines that begin with a slash.
class ChatCommands {
 public:
  // `reception` must outlive the commands.
  explicit ChatCommands(const Reception& reception) : mReception(reception) {}

  static bool IsCommand(const std::string& line) { return line.starts_with('/'); }
  // Carries out a command line of a logged-in session. What it answers, that session alone sees.
  void Run(Session& session, const std::string& line, TimePoint now) const;

 private:
  struct Command;
  static const Command kCommands[];

  void Help(Session& session, const std::string& rest, TimePoint now) const;
  void Who(Session& session, const std::string& rest, TimePoint now) const;
  void Me(Session& session, const std::string& rest, TimePoint now) const;

  const Reception& mReception;
};

}  // namespace tolva
