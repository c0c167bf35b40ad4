#pragma once

#include <string>

#include "server/Reception.h"
#include "server/common/ServerTime.h"

namespace tolva {

class Realm;
class Session;

// Chat lines that begin with a slash.
class ChatCommands {
 public:
  // Both must outlive the commands.
  ChatCommands(const Reception& reception, const Realm& realm) : mReception(reception), mRealm(realm) {}

  static bool IsCommand(const std::string& line) { return line.starts_with('/'); }
  // Carries out a command of a logged-in session. Only that session sees the answers.
  void Run(Session& session, const std::string& line, TimePoint now) const;

 private:
  struct Command;
  static const Command kCommands[];

  void Help(Session& session, const std::string& rest, TimePoint now) const;
  void Who(Session& session, const std::string& rest, TimePoint now) const;
  void Me(Session& session, const std::string& rest, TimePoint now) const;

  const Reception& mReception;
  const Realm& mRealm;
};

}  // namespace tolva
